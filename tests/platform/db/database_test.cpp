#include "platform/db/temporary_database.h"
#include "support/raw_sql.h"

namespace tessel::db {
namespace {

using DatabaseTest = TemporaryDatabase;

TEST_F(DatabaseTest, RowsAreCopiedWhenTheQueryOpens) {
    const auto database = Open();
    Query query = database->Select("select TypeID, SourceTypeName from SQLTypes order by TypeID");
    EXPECT_EQ(database->Execute("delete from SQLTypes"), 19);
    EXPECT_EQ(database->RowsTouched(), 19);
    EXPECT_EQ(KindThrown([&] { static_cast<void>(query["TypeID"]); }), ErrorKind::Sql);
    int rows = 0;
    while (query.Next()) EXPECT_EQ(query.Integer("typeid"), ++rows);
    EXPECT_EQ(rows, 19);
}

TEST_F(DatabaseTest, QueriesStayWithinTheirLimit) {
    const auto database = Open();
    for (const char* name : {"a", "b"})
        database->Execute(std::string("insert into ProjectSettings(PropName,PropValue) values('") + name +
                          "','1234')");
    const std::string sql = "select PropValue from ProjectSettings";
    EXPECT_NO_THROW((void)database->Select(sql, {.rows = 2, .bytes = 24}));
    for (const QueryLimit& less : {QueryLimit{.rows = 1}, QueryLimit{.bytes = 23}})
        EXPECT_EQ(KindThrown([&] { (void)database->Select(sql, less); }), ErrorKind::Sql);
}

TEST_F(DatabaseTest, FieldsByName) {
    const auto database = Open();
    Query query = database->Select(
        "select a.TypeID, b.TypeID, a.MaxScale, 2147483648 as Large, 1.5 as Part, '7' as Digits, -1 as Yes "
        "from SQLTypes a, SQLTypes b where a.TypeID=1 and b.TypeID=2");
    ASSERT_TRUE(query.Next());
    EXPECT_EQ(query["TYPEID"], Value(1)) << "the first of equal names";
    EXPECT_EQ(query["Large"], Value(2147483648.0));
    EXPECT_TRUE(query["MaxScale"].IsNull());
    EXPECT_EQ(query.Text("MaxScale"), "");
    EXPECT_EQ(query.Integer("Digits"), 7);
    EXPECT_TRUE(query.Boolean("Yes"));
    EXPECT_EQ(KindThrown([&] { static_cast<void>(query["Nothing"]); }), ErrorKind::Sql);
}

TEST_F(DatabaseTest, ASnapshotOfABusyFileIsNotEmpty) {
    const auto database = Database::Open(path_, std::chrono::milliseconds(10));
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
    sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr);
    EXPECT_EQ(KindThrown([&] { (void)database->Snapshot(); }), ErrorKind::Busy);
    sqlite3_close(other);
}

TEST_F(DatabaseTest, ASnapshotStandsApartFromItsFile) {
    test::RunRawSql(path_, "pragma journal_mode=wal");
    sqlite3* reader = nullptr;  // while it reads, the database stays in this mode
    ASSERT_EQ(sqlite3_open(path_.c_str(), &reader), SQLITE_OK);
    sqlite3_exec(reader, "begin; select * from Tables", nullptr, nullptr, nullptr);
    const auto database = Open();
    database->Execute("insert into Tables (TableName) values ('EARLIER')");
    const auto snapshot = database->Snapshot();
    EXPECT_TRUE(std::filesystem::exists(path_.string() + "-wal"));
    const Transaction held(*snapshot);
    database->Execute("insert into Tables (TableName) values ('LATER')");
    EXPECT_EQ(Count(*snapshot, "Tables"), 1);
    snapshot->Execute("delete from Tables");
    EXPECT_EQ(Count(*database, "Tables"), 2);
    try {
        (void)snapshot->Select("select * from Nothing");
        ADD_FAILURE();
    } catch (const DatabaseError& error) {
        EXPECT_NE(std::string(error.what()).find(path_.string()), std::string::npos) << error.what();
    }
    sqlite3_close(reader);
}

TEST_F(DatabaseTest, ErrorsTellTheStatementAsItWasWritten) {
    const auto database = Open();
    const std::string duplicate = "insert into Tables (TableName) values ('A' & 'b')";
    database->Execute(duplicate);
    try {
        database->Execute(duplicate);
        ADD_FAILURE();
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::Constraint);
        EXPECT_EQ(error.Sql(), duplicate);
        EXPECT_NE(std::string(error.what()).find("Tables.TableName"), std::string::npos) << error.what();
    }
    const std::vector<std::pair<std::string, ErrorKind>> failures{
        {"delete from Tables where \"Misspelt\" = 1", ErrorKind::Sql},
        {"select TabID from Tables", ErrorKind::Sql},
        {"update Indices set Unique = 5", ErrorKind::Constraint},
        {"update ForeignKeys set HowDelete = 'X'", ErrorKind::Constraint},
        {"insert into Columns (TabID,ColumnName,Position,TypeID) values (1,'x','first',1)",
         ErrorKind::Constraint},
    };
    database->Execute("insert into Indices (TabID,IndexName) values (1,'i')");
    database->Execute("insert into ForeignKeys (TabID,RefTabId,KeyName,HowDelete) values (1,1,'k','C')");
    for (const auto& [sql, kind] : failures)
        EXPECT_EQ(KindName(KindThrown([&] { database->Execute(sql); })), KindName(kind)) << sql;
    EXPECT_EQ(KindThrown([&] { static_cast<void>(database->Select("delete from Tables returning TabID")); }),
              ErrorKind::Sql);
    EXPECT_EQ(Count(*database, "Tables"), 1);
}

}  // namespace
}  // namespace tessel::db
