#include "support/raw_sql.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

class TableOperations : public SchemaTest {};
using Strings = std::vector<std::string>;
using host::Answer;
using host::Icon;

TEST_F(TableOperations, AddsATable) {
    Mark();
    std::int32_t id = 0;
    EXPECT_TRUE(Ws().TableAdd("CUSTOMER", id, "", date, "DBSchema", "obj:7"));
    EXPECT_EQ(Rows("select * from Tables"), Strings{"1|CUSTOMER|-|-|-|-|2026-01-31T10:00:00|DBSchema|obj:7"});
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(TakeNotes(), Strings{"draw CUSTOMER 1 tag='obj:7' comments=''"});
}

TEST_F(TableOperations, RefusesNamesAndKeepsTheMark) {
    AddTable("CUSTOMER");
    Mark();
    window->notes.clear();
    std::int32_t id = 0;
    for (const char* name : {"", " A", "A ", "1A", "A.B", "customer"})
        EXPECT_FALSE(Ws().TableAdd(name, id, Null{}, date, Null{}, Null{})) << name;
    EXPECT_FALSE(Ws().TableAdd(std::string(65, 'A'), id, Null{}, date, Null{}, Null{}));
    EXPECT_EQ(Rows("select TableName from Tables"), Strings{"CUSTOMER"});
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(TakeNotes(), Strings{});
}

TEST_F(TableOperations, StandsByWhatWasSavedWhenTheWindowFails) {
    window->fails = true;
    std::int32_t id = 0;
    EXPECT_TRUE(Ws().TableAdd("CUSTOMER", id, Null{}, date, Null{}, Null{}));
    EXPECT_TRUE(Ws().TableUpdate(id, "CLIENT", Missing{}, Missing{}, Missing{}));
    std::int32_t key = 0;
    EXPECT_TRUE(Ws().ForeignAdd(id, id, "FK", key));
    EXPECT_TRUE(Ws().ForeignUpdate(key, "FK2", Missing{}, Missing{}));
    EXPECT_TRUE(Ws().ForeignDrop(key));
    EXPECT_TRUE(Ws().TableDrop(id));
    EXPECT_EQ(Rows("select * from Tables"), Strings{});
}

TEST_F(TableOperations, AsksForTheName) {
    AddTable("NewTable");
    struct Case {
        QueuedAnswer answer;
        bool added;
        std::string name;
        Strings messages;
        Icon icon = Icon::None;
    };
    const std::string sixty(60, 'L');
    const Case cases[] = {
        {Answer::Cancel, false, "", {"Input table name"}},
        {TypedText{"  "}, false, "", {"Input table name"}},
        {TypedText{"1A"},
         false,
         "1A",
         {"Input table name", "Please enter a valid table name."},
         Icon::Critical},
        {TypedText{" newtable "},
         false,
         "newtable",
         {"Input table name", "Table with name newtable already exists."},
         Icon::Exclamation},
        {TypedText{" ORDERS "}, true, "ORDERS", {"Input table name"}},
        {TypedText{sixty}, true, sixty.substr(0, 50), {"Input table name"}},
    };
    for (const auto& c : cases) {
        questions->Answers({c.answer});
        std::string name;
        std::int32_t id = -1;
        EXPECT_EQ(Ws().TableAddVerbally(name, id), c.added);
        EXPECT_EQ(name, c.name);
        Strings messages;
        Icon icon{};
        for (const auto& asked : questions->TakeAsked()) {
            messages.push_back(asked.text);
            icon = asked.icon;
        }
        EXPECT_EQ(messages, c.messages);
        EXPECT_EQ(icon, c.icon) << c.name;
    }
    EXPECT_EQ(questions->lastInput.text, "NewTable1");
    EXPECT_EQ(Rows("select TableName, CreatedVia, RepObjId, CVRL from Tables order by TabID"),
              (Strings{"NewTable|-|-|-", "ORDERS|-|-|-", sixty.substr(0, 50) + "|-|-|-"}));
}

TEST_F(TableOperations, DropsATableWithWhatDependsOnIt) {
    const std::int32_t parent = AddTable("PARENT");
    const std::int32_t child = AddTable("CHILD");
    const std::int32_t other = AddTable("OTHER");
    AddColumn(parent, "ID");
    AddColumn(child, "PARENT_ID");
    (void)Ws().PrimaryAdd(parent);
    std::int32_t key = 0;
    ASSERT_TRUE(Ws().ForeignAdd(child, parent, "FK1", key));
    ASSERT_TRUE(Ws().ForeignAdd(parent, other, "FK2", key));
    ASSERT_TRUE(Ws().ForeignAdd(child, child, "FK3", key));
    for (const char* pair : {"2,1,99", "1,2,1"})
        Db().Execute(std::string("insert into ForeignKeyColumns(KeyID,ColumnID,RefColumnID) values(") + pair +
                     ")");
    Mark();
    window->notes.clear();

    EXPECT_TRUE(Ws().TableDrop(parent));
    EXPECT_EQ(Rows("select TableName from Tables order by TableName"), (Strings{"CHILD", "OTHER"}));
    EXPECT_EQ(Rows("select KeyName from ForeignKeys"), Strings{"FK3"});
    EXPECT_EQ(Rows("select ColumnName from Columns"), Strings{"PARENT_ID"});
    EXPECT_EQ(Rows("select * from Indices"), Strings{});
    EXPECT_EQ(Rows("select KeyID from ForeignKeyColumns"),
              Strings{"1"});  // its referencing column is another table's
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(TakeNotes(), Strings{"remove t1"});
}

TEST_F(TableOperations, UndoesADropThatFailsHalfway) {
    const std::int32_t id = AddTable("A");
    AddColumn(id, "C");
    Mark();
    RunRawSql(state.databaseFilename,
              "create trigger NoDrop before delete on Tables begin select raise(abort, 'no'); end");
    EXPECT_THROW((void)Ws().TableDrop(id), db::DatabaseError);
    EXPECT_EQ(Rows("select ColumnName from Columns"), Strings{"C"});
    EXPECT_TRUE(IsMarked());
    questions->Answers({Answer::OK});
    EXPECT_FALSE(Ws().DropTableVerbally(id, "A"));
    const auto asked = questions->TakeAsked();
    EXPECT_EQ(asked.back().text, "Cannot drop table");
    EXPECT_FALSE(asked.back().detail.empty());
}

TEST_F(TableOperations, AsksBeforeADropAndNamesTheReferencingTables) {
    const std::int32_t parent = AddTable("PARENT");
    const std::int32_t child = AddTable("CHILD");
    std::int32_t key = 0;
    for (const char* name : {"FK1", "FK2"}) ASSERT_TRUE(Ws().ForeignAdd(child, parent, name, key));
    ASSERT_TRUE(Ws().ForeignAdd(parent, parent, "FK3", key));

    struct Case {
        std::deque<QueuedAnswer> answers;
        bool dropped;
    };
    const Case cases[] = {
        {{Answer::Cancel}, false}, {{Answer::OK, Answer::Cancel}, false}, {{Answer::OK, Answer::OK}, true}};
    for (const auto& c : cases) {
        questions->Answers(c.answers);
        EXPECT_EQ(Ws().DropTableVerbally(parent, "Parent!"), c.dropped);
        const auto asked = questions->TakeAsked();
        ASSERT_EQ(asked.size(), c.answers.size());
        EXPECT_EQ(asked[0].text, "Drop table Parent!?");
        EXPECT_EQ(asked[0].icon, Icon::Exclamation);
        if (asked.size() > 1) {
            EXPECT_EQ(asked[1].text,
                      "The table to be dropped is referenced from \r\n    CHILD\r\n    CHILD\r\n    "
                      "PARENT\r\nForeign "
                      "keys will be dropped. Drop table anyway?");
        }
    }
}

TEST_F(TableOperations, UpdatesWhatIsGiven) {
    const std::int32_t id = AddTable("A");
    AddTable("B");
    struct Case {
        Value name, storage, comment, primary;
        bool updated;
        const char* row;
        const char* note;
    };
    const Value none = Missing{};
    const Case cases[] = {
        {none, none, "Kunden, 顧客", none, true, "A|-|Kunden, 顧客|-",
         "draw A 1 tag=(missing) comments='Kunden, 顧客'"},
        {none, "heap", none, 5, true, "A|heap|Kunden, 顧客|5", "draw A 1 tag=(missing) comments=(missing)"},
        {"C", "", "", Null{}, true, "C|-|-|-", "draw C 1 tag=(missing) comments=''"},
        {"c", none, none, none, true, "c|-|-|-", "draw c 1 tag=(missing) comments=(missing)"},
        {"b", none, "lost", none, false, "c|-|-|-", nullptr},
        {" C", none, "lost", none, false, "c|-|-|-", nullptr},
        {none, none, none, "no number", false, "c|-|-|-", nullptr},
    };
    for (const auto& c : cases) {
        Mark();
        window->notes.clear();
        EXPECT_EQ(Ws().TableUpdate(id, c.name, c.storage, c.comment, c.primary), c.updated);
        EXPECT_EQ(
            Rows("select TableName, StorageOption, Comments, PrimaryIndexID from Tables where TabID = 1"),
            Strings{c.row});
        EXPECT_EQ(TakeNotes(), c.note ? Strings{c.note} : Strings{});
        EXPECT_EQ(IsMarked(), !c.updated);
    }
    EXPECT_FALSE(Ws().TableUpdate(99, "X", none, none, none));
    EXPECT_TRUE(Ws().TableUpdate(99, none, none, none, none));  // nothing is read
}

}  // namespace

}  // namespace tessel::test
