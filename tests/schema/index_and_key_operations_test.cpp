#include "support/schema_test.h"

namespace tessel::test {

namespace {

class IndexOperations : public SchemaTest {};
class KeyOperations : public SchemaTest {};
using Strings = std::vector<std::string>;

std::shared_ptr<Collection> Columns(std::initializer_list<std::int32_t> ids) {
    auto columns = std::make_shared<Collection>();
    for (const std::int32_t id : ids) columns->Add(id, "c" + std::to_string(id));
    return columns;
}

TEST_F(IndexOperations, MakesThePrimaryIndexOnce) {
    AddTable("T");
    Mark();
    EXPECT_EQ(Ws().PrimaryAdd(1), 1);
    EXPECT_FALSE(IsMarked());
    Mark();
    EXPECT_EQ(Ws().PrimaryAdd(1), 1);
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(Rows("select IndexID,TabID,IndexName,Unique,Comment from Indices"),
              Strings{"1|1|PrimaryKey|1|-"});
    EXPECT_THROW((void)Ws().PrimaryAdd(99), db::DatabaseError);
    EXPECT_TRUE(Ws().IndexDrop(1));
    EXPECT_EQ(Ws().PrimaryAdd(1), 1);  // the table goes on naming it
}

TEST_F(IndexOperations, ListsAndMatchesColumns) {
    AddTable("T");
    (void)Ws().PrimaryAdd(1);
    Db().Execute("insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(1,7,2,'A')");
    Db().Execute("insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(1,5,1,'D')");
    EXPECT_TRUE(Ws().IndexMatch(1, *Columns({7, 5})));
    EXPECT_FALSE(Ws().IndexMatch(1, *Columns({5, 7, 9})));
    EXPECT_FALSE(Ws().IndexMatch(1, *Columns({5, 8})));
    Db().Execute("insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(1,5,3,'A')");  // again
    EXPECT_FALSE(Ws().IndexMatch(1, *Columns({7, 5})));
    const auto columns = Ws().PrimaryKeyColumns(1);
    std::string keys;
    for (const auto& [key, id] : *columns) keys += key + "=" + ToText(id) + " ";
    EXPECT_EQ(keys, "c5=5 c7=7 ");
}

TEST_F(IndexOperations, AddsUpdatesAndDrops) {
    AddTable("T");
    std::int32_t id = 0;
    for (const char* refused : {"", " I", "I.1"}) EXPECT_FALSE(Ws().IndexAdd(1, refused, id)) << refused;
    Mark();
    ASSERT_TRUE(Ws().IndexAdd(1, "I", id));
    EXPECT_FALSE(IsMarked());
    const std::string row = "select IndexName, Unique, Comment from Indices";
    EXPECT_EQ(Rows(row), Strings{"I|0|-"});
    const Value none = Missing{};
    EXPECT_TRUE(Ws().IndexUpdate(id, "I2", true, ""));
    EXPECT_EQ(Rows(row), Strings{"I2|1|"});
    EXPECT_TRUE(Ws().IndexUpdate(id, none, "False", "note"));
    EXPECT_EQ(Rows(row), Strings{"I2|0|note"});
    Mark();
    EXPECT_FALSE(Ws().IndexUpdate(id, "I ", true, "lost"));
    EXPECT_FALSE(Ws().IndexUpdate(id, none, "maybe", "lost"));
    EXPECT_FALSE(Ws().IndexUpdate(99, none, true, none));
    EXPECT_FALSE(Ws().IndexDrop(99));
    EXPECT_EQ(Rows(row), Strings{"I2|0|note"});
    EXPECT_TRUE(IsMarked());

    Db().Execute("insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(" +
                 std::to_string(id) + ",7,1,'A')");
    EXPECT_TRUE(Ws().IndexDrop(id));
    EXPECT_EQ(Rows("select * from IndexColumns"), Strings{});
    EXPECT_FALSE(IsMarked());
}

TEST_F(KeyOperations, KeepTheDiagramInStep) {
    AddTable("T");
    AddTable("U");
    window->notes.clear();
    std::int32_t id = 0;
    Mark();
    EXPECT_FALSE(Ws().ForeignAdd(1, 2, "FK.1", id));  // leaves a gap in the identifiers
    EXPECT_FALSE(Ws().ForeignUpdate(99, "FK", Missing{}, Missing{}));
    EXPECT_FALSE(Ws().ForeignDrop(99));
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(TakeNotes(), Strings{});

    ASSERT_TRUE(Ws().ForeignAdd(1, 2, "FK", id));
    ASSERT_TRUE(Ws().ForeignAdd(1, 1, "SELF", id));
    EXPECT_TRUE(Ws().ForeignUpdate(2, "FK2", "C", "obj:1"));
    EXPECT_TRUE(Ws().ForeignUpdate(2, Missing{}, "R", Missing{}));
    EXPECT_FALSE(Ws().ForeignUpdate(2, "FK ", "C", Missing{}));
    EXPECT_EQ(Rows("select KeyID,TabID,RefTabId,KeyName,HowDelete,Comment,CVRL from ForeignKeys"),
              (Strings{"2|1|2|FK2|R|-|obj:1", "3|1|1|SELF|R|-|-"}));
    Db().Execute("insert into ForeignKeyColumns(KeyID,ColumnID,RefColumnID) values(2,1,2)");
    Mark();
    EXPECT_TRUE(Ws().ForeignDrop(2));
    EXPECT_EQ(Rows("select * from ForeignKeyColumns"), Strings{});
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(TakeNotes(),
              (Strings{"connect k2 t1>t2 FK", "connect k3 t1>t1 SELF", "caption k2 FK2", "disconnect k2"}));
}

}  // namespace

}  // namespace tessel::test
