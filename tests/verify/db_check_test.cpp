#include "verify/db_check.h"

#include <sqlite3.h>

#include "support/raw_sql.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

using Strings = std::vector<std::string>;

const std::string stored = "select * from Errors";

// Another program that has read the first row of a query and not finished.
class OpenQuery {
  public:
    OpenQuery(const std::string& file, const char* sql) {
        EXPECT_EQ(sqlite3_open(file.c_str(), &connection_), SQLITE_OK);
        EXPECT_EQ(sqlite3_prepare_v2(connection_, sql, -1, &statement_, nullptr), SQLITE_OK);
        EXPECT_EQ(sqlite3_step(statement_), SQLITE_ROW);
    }
    ~OpenQuery() {
        sqlite3_finalize(statement_);
        sqlite3_close(connection_);
    }
    OpenQuery(const OpenQuery&) = delete;
    OpenQuery& operator=(const OpenQuery&) = delete;

  private:
    sqlite3* connection_ = nullptr;
    sqlite3_stmt* statement_ = nullptr;
};

class Verification : public SchemaTest {
  protected:
    // What a verification throws.
    std::optional<ErrorKind> Fault() {
        try {
            check.VerifySchema(true);
            return std::nullopt;
        } catch (const Error& error) {
            return error.Kind();
        }
    }

    // Whether another program finds any row in Errors.
    bool AreErrorsOnDisk() const { return db::Database::Open(state.databaseFilename)->Select(stored).Next(); }

    DBCheck check{state};
};

TEST_F(Verification, ReplacesTheFindingsUnlessTheSchemaIsMarked) {
    check.AddError(2, 0, 0, "earlier");
    check.VerifySchema(true);
    EXPECT_EQ(TakeNotes(), (Strings{"start Verifying 1", "errors No errors", "finish"}));
    EXPECT_EQ(Rows(stored), Strings{});

    AddTable("A");
    AddColumn(AddTable("B"), "ID");
    TakeNotes();
    check.VerifySchema(true);
    EXPECT_EQ(TakeNotes(), (Strings{"start Verifying 3", "step A", "done 1", "step B", "done 1",
                                    "errors 1 error(s) found", "finish"}));
    EXPECT_EQ(Rows(stored), Strings{"1|0|0|Table has no columns"});
    EXPECT_TRUE(IsMarked());
    check.VerifySchema(true);
    EXPECT_EQ(TakeNotes(), Strings{});

    AddColumn(1, "ID");
    TakeNotes();
    check.VerifySchema(false);
    EXPECT_EQ(TakeNotes(), (Strings{"start Verifying 3", "step A", "done 1", "step B", "done 1", "finish"}));
    EXPECT_EQ(Rows(stored), Strings{});
}

TEST_F(Verification, KeepsTheFindingsOfARunThatFails) {
    for (const auto* name : {"A", "B", "C"}) AddTable(name);
    check.AddError(9, 0, 0, "earlier");
    Ws().SetProjectSettings("Verified", "stale");
    TakeNotes();
    RunRawSql(state.databaseFilename,
              "create trigger Refuse before insert on Errors when new.TblID = 2 begin "
              "select raise(abort, 'refused'); end");
    EXPECT_EQ(Fault(), ErrorKind::Constraint);
    EXPECT_EQ(Rows(stored), Strings{"1|0|0|Table has no columns"});
    EXPECT_TRUE(AreErrorsOnDisk());
    EXPECT_EQ(Ws().GetProjectSettings("Verified"), "stale");
    EXPECT_EQ(TakeNotes(), (Strings{"start Verifying 4", "step A", "done 1", "step B"}));

    RunRawSql(state.databaseFilename, "drop trigger Refuse");
    check.VerifySchema(false);
    EXPECT_EQ(Rows(stored).size(), 3U);
}

TEST_F(Verification, KeepsTheFindingsWhenTheWindowFails) {
    AddTable("A");
    check.AddError(9, 0, 0, "earlier");
    window->fails = true;
    EXPECT_EQ(Fault(), ErrorKind::Host);
    EXPECT_FALSE(AreErrorsOnDisk());
    EXPECT_FALSE(IsMarked());
    state.window.reset();
    EXPECT_EQ(Fault(), ErrorKind::Host);
}

TEST_F(Verification, FailsWithTheFindingsThatCannotBeKept) {
    AddTable("A");
    check.AddError(9, 0, 0, "earlier");
    state.database = db::Database::Open(state.databaseFilename, std::chrono::milliseconds(1));
    for (const bool windowFails : {false, true}) {
        window->fails = windowFails;
        // A reader in the middle of a query keeps every change from being committed.
        const OpenQuery reader(state.databaseFilename, "select * from Tables");
        EXPECT_EQ(Fault(), ErrorKind::Busy);
        EXPECT_EQ(Rows(stored), Strings{"9|0|0|earlier"});
        EXPECT_FALSE(IsMarked());
    }
}

TEST_F(Verification, StoresMessagesUnchanged) {
    for (const auto* message : {"it's", "a|b", "'|' & Chr(39)", "", "表「%1」"}) {
        check.AddError(-1, 2, 3, message);
        EXPECT_EQ(Rows(stored), Strings{std::string("-1|2|3|") + message});
        Db().Execute("delete from Errors");
    }
}

TEST_F(Verification, ListsTheFindingsByTableKeyAndColumn) {
    for (const auto* name : {"A", "B"}) AddTable(name);
    check.AddError(2, 0, 0, "last");
    check.AddError(1, 10, 4, "key column");
    check.AddError(1, 9, 0, "key");
    check.AddError(7, 0, 0, "of no table");
    check.AddError(1, 0, 0, "table");
    check.AddError(1, -1, 20, "column");
    check.AddError(1, -1, 0, "index");
    TakeNotes();
    check.LoadErrors();
    EXPECT_EQ(TakeNotes(), Strings{"errors 6 error(s) found"});
    Strings rows;
    for (const auto& error : window->errors)
        rows.push_back(error.icon + " " + error.tableName + " " + error.message + " " + error.tag);
    EXPECT_EQ(rows, (Strings{"Table A index 1\r0\r-1", "Column A column 1\r20\r-1", "Table A table 1\r0\r0",
                             "Key A key 1\r0\r9", "Key A key column 1\r4\r10", "Table B last 2\r0\r0"}));
}

}  // namespace

}  // namespace tessel::test
