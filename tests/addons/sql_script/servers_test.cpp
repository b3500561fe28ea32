#include "platform/db/postgres_catalogue.h"
#include "platform/db/sqlite_catalogue.h"
#include "script_test.h"
#include "sql_script/schema_reader.h"
#include "support/postgres_server.h"
#include "support/raw_sql.h"

namespace tessel::test {
namespace {

const auto cases = std::filesystem::path(TESSEL_TEST_DATA) / "cases";

using WholeSchema = ScriptTest;

TEST_F(WholeSchema, IsDroppedWithItsRowsWhileKeysAreWatched) {
    MakeRows(cases / "cycles/rows.sql");
    const std::string script = Script("sqlite", ";drop=yes");
    const std::string rows =
        "BEGIN; PRAGMA defer_foreign_keys = ON; insert into A values (1, 2); insert into B values (2, 3);"
        "insert into C values (3, 'x', 1); insert into D values (1, 'a', 2, 'b'), (2, 'b', 1, 'a');"
        "insert into E values ('x', 3); COMMIT;";
    RunRawSql(folder / "made.db", "PRAGMA foreign_keys = ON;" + script + rows + script + rows);
}

TEST_F(WholeSchema, WithDefaultsMeansWhatWasTyped) {
    MakeRows(cases / "defaults/rows.sql");
    auto& server = PostgresServer::Shared();
    const std::string database = server.MakeDatabase();
    server.Run(database, Script("postgresql"));
    const auto row = server.Run(
        database,
        "insert into \"Kept\" default values;"
        "select \"Char\", \"Numeric\", \"Decimal\", \"Integer\", \"Small\", \"Float\", \"Real\", \"Double\", "
        "\"Date\", \"Time\", \"Stamp\", \"Now\" > \"Stamp\", \"Today\" = \"Now\"::date, \"Text\", \"Long\", "
        "\"Big\", \"Tiny\", \"Bool\", \"Bytes\", \"VarBytes\", \"LongBytes\", \"Empty\" = '', \"None\" is "
        "null "
        "from \"Kept\"");
    const std::vector<std::string> wanted{
        "P   |-12.500|7|2|-32768|1000|0.5|-1e-07|2026-02-28|23:59:00|2026-02-28 10:00:00|t|t|O'Brien');\\ -- "
        "\"x\"",
        "y|a long text|9007199254740993|100|t|\\xcafe|\\x00ff|\\x4142|t|t"};
    EXPECT_EQ(row, wanted);
    const auto back = db::ReadPostgresCatalogue(server.Address(database)).catalogue.tables.at(0);
    const auto schema = sql_script::ReadSchema(*Ws().ProjectDB()).tables.at(0);
    EXPECT_EQ(back.comment, schema.comment);
    for (std::size_t i = 0; i < schema.columns.size(); ++i)
        EXPECT_EQ(back.columns.at(i).comment, schema.columns[i].comment);
}

// The tables that a server has when the script ran there twice.
std::size_t TablesInSqlite(const std::string& script) {
    const TemporaryFolder folder;
    for (int time = 0; time < 2; ++time) RunRawSql(folder / "made.db", script);
    return db::ReadSqliteCatalogue(folder / "made.db").tables.size();
}

std::size_t TablesInPostgres(const std::string& script) {
    auto& server = PostgresServer::Shared();
    const std::string database = server.MakeDatabase();
    for (int time = 0; time < 2; ++time) server.Run(database, script);
    return db::ReadPostgresCatalogue(server.Address(database)).catalogue.tables.size();
}

// Whatever is wrong with a schema, a server takes what the script keeps of it.
TEST_F(WholeSchema, InEveryCaseRunsOnTheServers) {
    const struct {
        const char* name;
        std::size_t inSqlite, inPostgres;
    } schemas[] = {{"cycles", 5, 5}, {"names", 8, 8}, {"left_out", 3, 4}};
    for (const auto& [name, inSqlite, inPostgres] : schemas) {
        SCOPED_TRACE(name);
        for (const auto* table :
             {"Tables", "Columns", "Indices", "IndexColumns", "ForeignKeys", "ForeignKeyColumns"})
            Db().Execute(std::string("delete from ") + table);
        MakeRows(cases / name / "rows.sql");
        for (const std::string options : {";drop=yes", ";drop=yes;comments=no"}) {
            EXPECT_EQ(TablesInSqlite(Script("sqlite", options)), inSqlite) << options;
            EXPECT_EQ(TablesInPostgres(Script("postgresql", options)), inPostgres) << options;
        }
    }
}

}  // namespace
}  // namespace tessel::test
