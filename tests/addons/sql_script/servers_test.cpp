#include "round_trip.h"
#include "script_test.h"

namespace tessel::test {
namespace {

const auto cases = std::filesystem::path(TESSEL_TEST_DATA) / "cases";

class WholeSchema : public ScriptTest {
  protected:
    db::SourceCatalogue Wanted() { return CatalogueOf(sql_script::ReadSchema(*Ws().ProjectDB())); }
    void ExpectBack() {
        for (const Server* server : {&sqliteServer, &postgresServer}) {
            const Comparable comparable(*server);
            const auto back = server->make(Script(server->dialect, ";drop=yes"));
            const auto wanted = comparable.Lines(Wanted());
            const auto found = comparable.Lines(back);
            ASSERT_EQ(found.size(), wanted.size());
            for (std::size_t i = 0; i < found.size(); ++i) EXPECT_EQ(found[i], wanted[i]) << server->dialect;
            EXPECT_EQ(Notes(back), db::Lines());
        }
    }
};

TEST_F(WholeSchema, OfTheSampleComesBackFromTheServers) {
    std::istringstream calls(Content(TESSEL_SAMPLE_CALLS));
    std::ostringstream answers;
    ServeCalls({state, *questions}, calls, answers);
    ASSERT_EQ(answers.str().find("\"error\""), std::string::npos);
    ExpectBack();
}

TEST_F(WholeSchema, WithCyclesComesBackFromTheServers) {
    MakeRows(cases / "cycles/rows.sql");
    ExpectBack();
}

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
    const auto schema = Wanted().tables.at(0);
    EXPECT_EQ(back.comment, schema.comment);
    for (std::size_t i = 0; i < schema.columns.size(); ++i)
        EXPECT_EQ(back.columns.at(i).comment, schema.columns[i].comment);
}

// Whatever is wrong with a schema, a server takes what the script keeps of it.
TEST_F(WholeSchema, InEveryCaseRunsOnTheServers) {
    MakeRows(cases / "names/rows.sql");
    for (const Server* server : {&sqliteServer, &postgresServer}) {
        EXPECT_EQ(server->make(Script(server->dialect, ";drop=yes")).tables.size(), 5U);
        EXPECT_EQ(server->make(Script(server->dialect, ";drop=yes;comments=no")).tables.size(), 5U);
    }
    for (const auto* table :
         {"Tables", "Columns", "Indices", "IndexColumns", "ForeignKeys", "ForeignKeyColumns"})
        Db().Execute(std::string("delete from ") + table);
    MakeRows(cases / "left_out/rows.sql");
    for (const Server* server : {&sqliteServer, &postgresServer})
        EXPECT_EQ(server->make(Script(server->dialect, ";drop=yes")).tables.size(),
                  server->keepsComments ? 4U : 3U);
}

}  // namespace
}  // namespace tessel::test
