#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>

#include "engine/headless_window.h"
#include "engine/queued_questions.h"
#include "engine/tessel_engine.h"
#include "import/import_db_schema.h"
#include "runner/serve_calls.h"
#include "schema/identifiers.h"
#include "schema_lines.h"
#include "sql_script/planner.h"
#include "sql_script/schema_reader.h"
#include "sql_script/script_writer.h"
#include "support/postgres_server.h"
#include "support/raw_sql.h"
#include "support/temporary_folder.h"
#include "workbench/load/load_repository.h"
#include "workbench/stand_alone_frontend.h"

namespace tessel::test {

namespace {

using Lines = std::vector<std::string>;

// A project in a workspace of its own.
class Project {
  public:
    Project() {
        auto folder = workbench::WorkspaceFolder::Create(folder_ / "w", "Main");
        state_.texts = std::make_shared<text::Texts>(std::string(TESSEL_SHARE) + "/texts", "en");
        state_.codePage = std::make_shared<text::CodePage>(1252);
        state_.questions = {std::shared_ptr<void>(), &questions_};
        state_.loadMainWindow = LoadHeadlessWindow;
        const auto frontend =
            std::make_shared<workbench::StandAloneFrontend>(std::move(folder), "Main", TESSEL_SHARE, "en");
        EXPECT_EQ(TesselEngine(state_).Run(frontend, Missing{}, Missing{}), 0);
    }

    // Takes the tables of a real database, by way of the repository.
    void Follow(const std::string& source) {
        const auto folder = workbench::WorkspaceFolder::Open(folder_ / "w");
        (void)workbench::LoadRepository(
            workbench::ReadSource(source, folder.Path()),
            {.folder = folder.Path(),
             .file = *folder.File(),
             .templateDatabase = std::string(TESSEL_SHARE) + "/DBSchema.mdb",
             .nameRule = [&](std::string_view name) { return SQLID(state_, name); },
             .now = Now()});
        const ImportOutcome outcome = modImportDBSchema(state_).SyncDBSchema();
        EXPECT_EQ(outcome.failure.value_or(""), "");
        EXPECT_GT(outcome.added.size(), 0U);
        EXPECT_EQ(outcome.leftOut.size() + outcome.renamed.size(), 0U);
    }

    void MakeSample() {
        std::ifstream calls(TESSEL_SAMPLE_CALLS);
        std::ostringstream answers;
        ServeCalls({state_, questions_}, calls, answers);
        EXPECT_EQ(answers.str().find("\"error\""), std::string::npos) << answers.str();
    }

    [[nodiscard]] std::string Repository() const { return folder_ / "w/DBSchema.mdb"; }
    [[nodiscard]] const std::string& File() const { return state_.databaseFilename; }
    [[nodiscard]] std::shared_ptr<Object> Database() { return WorkspaceOf(state_)->ProjectDB(); }

  private:
    TemporaryFolder folder_;
    QueuedQuestions questions_;
    ComponentState state_;
};

std::string ScriptFor(const std::string& dialect, Project& project) {
    using namespace sql_script;
    const std::string types = std::string(TESSEL_SHARE) + "/addons/sql_types.txt";
    const Dialect& server = *FindDialect(dialect);
    const ServerSchema planned = PlanSchema(
        server, TypeTable(Content(types), types, server, Language::English), ReadSchema(*project.Database()));
    return WriteScript(server, planned, {}, [](std::size_t) {});
}

// A server, and what it cannot tell apart of what the editor can: patterns in the lines of a schema.
struct Server {
    const char* dialect;
    bool keepsComments;
    std::string (*make)(const TemporaryFolder& folder, const std::string& script);  // returns the source
    std::vector<std::pair<const char*, const char*>> losses;
};

std::string MakeSqlite(const TemporaryFolder& folder, const std::string& script) {
    RunRawSql(folder / "made.db", script);
    return "sqlite:" + folder / "made.db";
}

std::string MakePostgres(const TemporaryFolder&, const std::string& script) {
    auto& server = PostgresServer::Shared();
    const std::string database = server.MakeDatabase();
    server.Run(database, script);
    return server.Address(database);
}

const Server servers[] = {
    {"sqlite", false, MakeSqlite, {}},
    {"postgresql",
     true,
     MakePostgres,
     {{" DECIMAL\\b", " NUMERIC"},
      {" TINYINT\\b", " SMALLINT"},
      {" FLOAT\\(([1-9]|1\\d|2[0-4])\\)", " REAL"},
      {" FLOAT\\b(\\(\\d+\\))?", " DOUBLE"},
      {" (VAR)?BINARY\\b(\\(\\d+\\))?", " LONGVARBINARY"}}},
};

Lines WithLosses(const Server& server, Lines lines) {
    for (auto& line : lines) {
        for (const auto& [pattern, replacement] : server.losses)
            line = std::regex_replace(line, std::regex(pattern), replacement);
        if (!server.keepsComments) line = std::regex_replace(line, std::regex(" \\{[^]*\\}$"), "");
    }
    return lines;
}

// The lines that only one of them has, in the order of both.
std::string Differences(const Lines& found, const Lines& expected) {
    std::string text;
    for (const auto& line : found)
        if (std::ranges::count(found, line) != std::ranges::count(expected, line))
            text += "found " + line + "\n";
    for (const auto& line : expected)
        if (std::ranges::count(found, line) != std::ranges::count(expected, line))
            text += "lost  " + line + "\n";
    return text;
}

void ExpectRoundTrip(Project& project) {
    for (const auto& server : servers) {
        SCOPED_TRACE(server.dialect);
        const TemporaryFolder folder;
        Project follower;
        follower.Follow(server.make(folder, ScriptFor(server.dialect, project)));
        for (const auto& [file, comments] : {std::pair(follower.Repository(), PartComments::Taken),
                                             std::pair(follower.File(), PartComments::LeftOut)})
            EXPECT_EQ(Differences(SchemaLines(file, comments),
                                  WithLosses(server, SchemaLines(project.File(), comments))),
                      "");
    }
}

TEST(RoundTrip, TheSampleComesBackFromAServer) {
    Project sample;
    sample.MakeSample();
    ExpectRoundTrip(sample);
}

TEST(RoundTrip, RealDatabasesComeBackFromAServer) {
    for (const auto& file : std::filesystem::directory_iterator(TESSEL_TEST_DATA "/cases")) {
        SCOPED_TRACE(file.path().string());
        const TemporaryFolder folder;
        RunRawSql(folder / "source.db", Content(file.path()));
        Project project;
        project.Follow("sqlite:" + folder / "source.db");
        ExpectRoundTrip(project);
    }
}

}  // namespace

}  // namespace tessel::test
