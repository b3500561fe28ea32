#include "support/raw_sql.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

class ColumnOperations : public SchemaTest {
  protected:
    // The columns of table 1 in order, each with its position.
    std::string Order(std::int32_t table = 1) {
        std::string order;
        for (auto row = Db().Select("select * from Columns where TabID = " + std::to_string(table) +
                                    " order by Position");
             row.Next();)
            order += row.Text("ColumnName") + std::to_string(row.Integer("Position")) + " ";
        return order;
    }
};
using Strings = std::vector<std::string>;

TEST_F(ColumnOperations, AddsAtThePlaceAskedFor) {
    const std::int32_t table = AddTable("T");
    const std::int32_t a = AddColumn(table, "A", -1);
    const std::int32_t c = AddColumn(table, "C", a);
    EXPECT_EQ(Order(), "A1 C2 ");
    AddColumn(table, "B", a);
    EXPECT_EQ(Order(), "A1 B2 C3 ");
    AddColumn(table, "F", -1);
    EXPECT_EQ(Order(), "F1 A2 B3 C4 ");
    ASSERT_TRUE(Ws().ColumnDrop(a));  // leaves a gap
    AddColumn(table, "E", c);
    EXPECT_EQ(Order(), "F1 B3 C4 E5 ");
}

TEST_F(ColumnOperations, StoresEveryField) {
    AddTable("T");
    Mark();
    std::string name = "PRICE";
    std::int32_t id = 0;
    ASSERT_TRUE(Ws().ColumnAdd(1, name, 3, 10, 2, false, "net", "0.00", date, "import", "obj:3", -1, id));
    ASSERT_TRUE(Ws().ColumnAdd(1, name, 12, 8, 0, true, "", "", Null{}, Null{}, "", id, id));
    EXPECT_EQ(name, "PRICE1");
    EXPECT_EQ(id, 2);
    EXPECT_EQ(
        Rows("select "
             "ColumnName,Position,TypeID,Precision,Scale,IsNullable,Comments,DefaultValue,CreatedVia,CVRL "
             "from Columns order by ColumnID"),
        (Strings{"PRICE|1|3|10|2|0|net|0.00|import|obj:3", "PRICE1|2|12|8|0|1|-||-|"}));
    EXPECT_FALSE(IsMarked());
}

TEST_F(ColumnOperations, RefusesAPlaceThatIsNoneAndANameThatIsNone) {
    AddTable("T");
    AddColumn(1, "A");
    for (const std::int32_t after : {0, 99, -2}) {
        std::string name = "B";
        std::int32_t id = 0;
        EXPECT_FALSE(Ws().ColumnAdd(1, name, 4, 0, 0, true, Null{}, Null{}, date, Null{}, Null{}, after, id));
        EXPECT_EQ(Ws().ColumnCopy(1, 1, after == 0 ? 98 : after), -1);
    }
    EXPECT_EQ(Order(), "A1 ");
    AddColumn(1, "B");
    std::string name = "!";
    std::int32_t id = 0;
    EXPECT_FALSE(Ws().ColumnAdd(1, name, 4, 0, 0, true, Null{}, Null{}, date, Null{}, Null{}, 1, id));
    EXPECT_EQ(Order(), "A1 B3 ");  // the place was made before the name was refused
}

TEST_F(ColumnOperations, ImportsAtTheEndWithTheCrossedNumbers) {
    AddTable("T");
    std::string name;
    EXPECT_EQ(Ws().ColumnImport(1, "1QTY", 3, 9, 2, date, Null{}, "", name), 1);
    EXPECT_EQ(name, "QTY");
    EXPECT_EQ(Ws().ColumnImport(1, "QTY", 5, 4, 0, date, "book", "text:x", name), 2);
    EXPECT_EQ(name, "QTY1");
    Mark();
    EXPECT_EQ(Ws().ColumnImport(1, "!", 5, 4, 0, date, Null{}, Null{}, name), -1);
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(
        Rows("select ColumnName,Position,TypeID,Precision,Scale,IsNullable,CreatedVia,CVRL from Columns"),
        (Strings{"QTY|1|3|9|2|1||-", "QTY1|2|5|4|0|1|book|text:x"}));
}

TEST_F(ColumnOperations, AnImportThatTheDatabaseRefusesAnswersByHowFarItCame) {
    AddTable("T");
    RunRawSql(state.databaseFilename,
              "create trigger NoColumns before insert on Columns begin select raise(abort, 'no'); end");
    std::string name;
    EXPECT_GT(Ws().ColumnImport(1, "A", 4, 0, 0, date, Null{}, Null{}, name), 0);
    EXPECT_EQ(Rows("select * from Columns"), Strings{});
    RunRawSql(state.databaseFilename, "drop table Columns");
    EXPECT_EQ(Ws().ColumnImport(1, "A", 4, 0, 0, date, Null{}, Null{}, name), 0);
}

TEST_F(ColumnOperations, CopiesWithinAndBetweenTables) {
    AddTable("T");
    const std::int32_t empty = AddTable("EMPTY");
    std::string name = "A";
    std::int32_t a = 0;
    ASSERT_TRUE(Ws().ColumnAdd(1, name, 3, 10, 2, false, "note", "7", date, "via", "obj:1", -1, a));
    AddColumn(1, "B");
    EXPECT_EQ(Ws().ColumnCopy(a, 1, a), 3);
    EXPECT_EQ(Order(), "A1 A12 B3 ");
    EXPECT_EQ(Ws().ColumnCopy(a, 1, 0), 4);  // 0 is the end
    EXPECT_EQ(Order(), "A1 A12 B3 A24 ");
    Mark();
    EXPECT_EQ(Ws().ColumnCopy(a, empty, 0), 5);
    EXPECT_EQ(Order(empty), "A1 ");
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(Ws().ColumnCopy(99, 1, -1), -1);
    const std::string fields =
        "select TypeID,Precision,Scale,IsNullable,Comments,DefaultValue,Created,CreatedVia,CVRL ";
    EXPECT_EQ(Rows(fields + "from Columns where ColumnID = 5"),
              Rows(fields + "from Columns where ColumnID = 1"));
}

TEST_F(ColumnOperations, DropsAColumnFromItsIndexesAndBothSidesOfKeys) {
    AddTable("T");
    const std::int32_t a = AddColumn(1, "A");
    const std::int32_t b = AddColumn(1, "B");
    Db().Execute("insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(1,1,1,'A')");
    Db().Execute("insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(1,2,2,'D')");
    for (const char* pair : {"1,2", "2,1", "2,2"})
        Db().Execute(std::string("insert into ForeignKeyColumns(KeyID,ColumnID,RefColumnID) values(1,") +
                     pair + ")");
    Mark();
    EXPECT_TRUE(Ws().ColumnDrop(a));
    EXPECT_EQ(Rows("select ColumnID, Position from IndexColumns"), Strings{"2|2"});
    EXPECT_EQ(Rows("select ColumnID, RefColumnID from ForeignKeyColumns"), Strings{"2|2"});
    EXPECT_EQ(Order(), "B2 ");
    EXPECT_FALSE(IsMarked());
    RunRawSql(state.databaseFilename,
              "create trigger NoDrop before delete on Columns begin select raise(abort, 'no'); end");
    EXPECT_FALSE(Ws().ColumnDrop(b));
    EXPECT_EQ(Rows("select ColumnID from ForeignKeyColumns"), Strings{"2"});
}

TEST_F(ColumnOperations, UpdatesWhatIsGiven) {
    AddTable("T");
    std::string name = "A";
    std::int32_t id = 0;
    ASSERT_TRUE(Ws().ColumnAdd(1, name, 3, 10, 2, false, "note", "7", date, Null{}, Null{}, -1, id));
    AddColumn(1, "B");
    const Value none = Missing{};
    struct Case {
        Value name, type, precision, scale, nullable, comment, defaultValue;
        bool updated;
        const char* row;
    };
    const Case cases[] = {
        {none, none, none, none, none, none, none, true, "A|3|10|2|0|note|7"},
        {"A2", none, none, none, "True", "", Null{}, true, "A2|3|10|2|1|-|-"},
        {none, none, -1, 4, none, none, "", true, "A2|3|10|4|1|-|"},
        {none, none, "12", none, 0, "x", none, true, "A2|3|12|4|0|x|"},
        {none, 12, none, 3, none, none, none, true, "A2|12|12|0|0|x|"},  // takes no scale, whatever is passed
        {none, 4, 99, 99, none, none, none, true, "A2|4|0|99|0|x|"},     // takes no precision
        {none, none, 32768, none, none, "lost", none, false, "A2|4|0|99|0|x|"},
        {none, none, none, "x", none, "lost", none, false, "A2|4|0|99|0|x|"},
        {"b", none, none, none, none, "lost", none, false, "A2|4|0|99|0|x|"},
        {"A3 ", none, 7, none, none, none, none, false, "A2|4|0|99|0|x|"},
    };
    for (const auto& c : cases) {
        Mark();
        EXPECT_EQ(Ws().ColumnUpdate(id, c.name, c.type, c.precision, c.scale, c.nullable, c.comment,
                                    c.defaultValue),
                  c.updated);
        EXPECT_EQ(Rows("select ColumnName,TypeID,Precision,Scale,IsNullable,Comments,DefaultValue from "
                       "Columns where "
                       "ColumnID = 1"),
                  Strings{c.row});
        EXPECT_EQ(IsMarked(), !c.updated || &c == &cases[0]) << c.row;
    }
    EXPECT_FALSE(Ws().ColumnUpdate(99, "X", none, none, none, none, none, none));
}

}  // namespace

}  // namespace tessel::test
