#include "platform/db/table_set.h"

#include "platform/db/temporary_database.h"
#include "support/raw_sql.h"

namespace tessel::db {
namespace {

class TableSetTest : public TemporaryDatabase {
  protected:
    // Adds a table and returns its identifier.
    static std::int32_t Add(Database& database, const std::string& name) {
        TableSet tables = database.OpenTable("tables");
        tables.AddNew();
        tables.Set("TableName", name);
        tables.Save();
        tables.SetIndex("TableName");
        EXPECT_TRUE(tables.Seek({name}));
        return *tables.Get("TabID").As<std::int32_t>();
    }

    std::shared_ptr<Database> database_ = Open();
};

TEST_F(TableSetTest, IdentifierIsKnownBeforeSavingAndNeverComesTwice) {
    const auto other = Open();
    TableSet first = database_->OpenTable("Tables");
    TableSet second = other->OpenTable("Tables");
    first.AddNew();
    second.AddNew();
    EXPECT_EQ(first.Get("TabID"), Value(1));
    EXPECT_EQ(second.Get("TabID"), Value(2));
    first.Set("TableName", "A");
    second.Set("TableName", "B");
    second.Save();
    first.Save();
    first.AddNew();
    EXPECT_EQ(first.Get("tabid"), Value(3));
    first.Cancel();
    EXPECT_EQ(Add(*database_, "C"), 4);
    database_->Execute("delete from Tables");
    EXPECT_EQ(Add(*other, "D"), 5);
    {
        Transaction undone(*database_);
        first.AddNew();
        EXPECT_EQ(first.Get("TabID"), Value(6));
    }
    EXPECT_EQ(Add(*database_, "E"), 7) << "6 was handed out, though the transaction was undone";
    EXPECT_EQ(Count(*other, "Tables"), 2);
    test::RunRawSql(path_, "delete from sqlite_sequence");
    EXPECT_EQ(KindThrown([&] { first.AddNew(); }), ErrorKind::Damaged);
}

TEST_F(TableSetTest, SeekEditSave) {
    const std::int32_t id = Add(*database_, "Customer");
    TableSet tables = database_->OpenTable("Tables");
    EXPECT_EQ(KindThrown([&] { tables.Seek({id}); }), ErrorKind::Sql) << "no index yet";
    tables.SetIndex("PrimaryKey");
    EXPECT_FALSE(tables.Seek({id + 1}));
    EXPECT_EQ(KindThrown([&] { tables.Edit(); }), ErrorKind::Sql);
    ASSERT_TRUE(tables.Seek({id}));
    tables.Edit();
    tables.Set("Comments", "seen");
    tables.Set("Created", DateTime{0});
    EXPECT_EQ(tables.Get("Comments"), Value("seen"));
    tables.Cancel();
    EXPECT_TRUE(tables.Get("Comments").IsNull());
    tables.Edit();
    tables.Set("Created", DateTime{0});
    tables.Set("PrimaryIndexID", std::int16_t{7});
    tables.Save();
    Query query = database_->Select("select * from Tables where PrimaryIndexID=7");
    ASSERT_TRUE(query.Next());
    EXPECT_EQ(query.Text("Created"), "1970-01-01T00:00:00");
    EXPECT_EQ(query.Text("TableName"), "Customer");
    tables.Edit();
    tables.Set("Comments", "late");
    database_->Execute("delete from Tables");
    EXPECT_EQ(KindThrown([&] { tables.Save(); }), ErrorKind::Sql) << "the row is gone";
}

TEST_F(TableSetTest, TwoFieldsAndDefaults) {
    TableSet columns = database_->OpenTable("Columns");
    for (const int position : {2, 1}) {
        columns.AddNew();
        columns.Set("TabID", position);
        columns.Set("ColumnName", "ID");
        columns.Set("Position", position);
        columns.Set("TypeID", 1);
        columns.Set("isnullable", true);
        columns.Save();
    }
    columns.SetIndex("TableIDColName");
    ASSERT_TRUE(columns.Seek({1, "id"}));
    EXPECT_EQ(columns.Get("ColumnID"), Value(2));
    EXPECT_TRUE(columns.Seek({2}));
    EXPECT_EQ(columns.Get("ColumnID"), Value(1));
    EXPECT_FALSE(columns.Seek({3, "ID"}));
}

// Within ASCII names compare without regard to case, outside it exactly.
TEST_F(TableSetTest, NamesAreUnique) {
    Add(*database_, "Customer");
    Add(*database_, "Ärzte");
    EXPECT_EQ(KindThrown([&] { Add(*database_, "CUSTOMER"); }), ErrorKind::Constraint);
    EXPECT_EQ(KindThrown([&] { Add(*database_, "ÄRZTE"); }), ErrorKind::Constraint);
    EXPECT_EQ(Add(*database_, "ärzte"), 5) << "the refused rows leave gaps";
}

TEST_F(TableSetTest, ValuesThatAFieldTakes) {
    using std::string_literals::operator""s;
    std::string kanji64;
    for (int i = 0; i < 64; ++i) kanji64 += "表";
    TableSet tables = database_->OpenTable("Tables");
    EXPECT_EQ(tables.FieldSize("tablename"), 64);
    tables.AddNew();
    tables.Set("TableName", kanji64);
    tables.Set("Comments", std::string(100'000, 'c'));
    const std::vector<std::pair<Value, ErrorKind>> refused{
        {kanji64 + "x", ErrorKind::Constraint},
        {"a\0b"s, ErrorKind::Constraint},
        {"\xE3\x81", ErrorKind::Constraint},
        {Missing(), ErrorKind::Argument},
        {std::make_shared<Collection>(), ErrorKind::Argument},
    };
    for (const auto& [value, kind] : refused)
        EXPECT_EQ(KindThrown([&, &given = value] { tables.Set("TableName", given); }), kind);
    tables.Save();
    EXPECT_EQ(Count(*database_, "Tables where TableName='" + kanji64 + "'"), 1);
    EXPECT_EQ(KindThrown([&] { database_->Execute("update Tables set TableName='" + kanji64 + "x'"); }),
              ErrorKind::Constraint);

    TableSet indices = database_->OpenTable("Indices");
    indices.AddNew();
    indices.Set("TabID", 1);
    indices.Set("IndexName", "i");
    indices.Set("Unique", -1);
    EXPECT_EQ(KindThrown([&] { indices.Save(); }), ErrorKind::Constraint);
    indices.Set("Unique", Value(true));
    indices.Save();
    EXPECT_EQ(Count(*database_, "Indices where Unique = True and Comment = null"), 1);
}

}  // namespace
}  // namespace tessel::db
