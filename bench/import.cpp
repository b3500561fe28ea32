// Measures the import of generated repositories into an empty project, and its repetition after one object
// has changed, without the window and with it, against bare statements that write the same rows:
// bench_import [TABLES...]

#include <sqlite3.h>

#include <QApplication>

#include "bench.h"
#include "engine/queued_questions.h"
#include "generate_schema.h"
#include "import/import_db_schema.h"
#include "platform/files/file_service.h"
#include "ui/main/frm_main.h"
#include "workbench/stand_alone_frontend.h"

namespace {

using namespace tessel;

// A project without tables, in a workspace whose repository holds so many.
std::shared_ptr<host::Frontend> MakeWorkspace(const std::string& workspace, int tables) {
    auto folder = workbench::WorkspaceFolder::Create(workspace, "Main");
    bench::GenerateSchema(TESSEL_SHARE, workspace + "/DBSchema.mdb", tables);
    folder.File()->Change([&](workbench::RepositoryContents& contents) {
        for (int i = 1; i <= tables; ++i) {
            const auto object = contents.TakeIdentifier();
            contents.AddObject(object, "TABLE");
            contents.SetAttributes(
                object, {{"Name", fmt::format("TABLE_{:05}", i)}, {"Modified", "2026-01-31T10:00:00"}});
        }
    });
    return std::make_shared<workbench::StandAloneFrontend>(std::move(folder), "Main",
                                                           std::string(TESSEL_SHARE));
}

void ChangeFirst(host::Frontend& frontend, const char* modified) {
    frontend.RepositoryOf()->FindObject("TABLE", "TABLE_00001")->SetAttribute("Modified", modified);
}

// An import that must drop and add so many tables.
double Import(ComponentState& state, std::size_t dropped, std::size_t added) {
    ImportOutcome outcome;
    const double seconds = bench::Seconds([&] {
        outcome = modImportDBSchema(state).SyncDBSchema();
        state.window->FinishProgress();
    });
    if (outcome.failure) throw std::runtime_error(*outcome.failure);
    if (outcome.dropped.size() != dropped || outcome.added.size() != added)
        throw std::runtime_error("The import did not drop and add the tables that it should.");
    return seconds;
}

// The rows of the database `from`, written to the database `to`, whose own go first.
double WriteBare(const std::string& to, const std::string& from) {
    std::string sql =
        "pragma journal_mode=persist; pragma synchronous=full; attach '" + from + "' as f; begin;";
    for (const char* table :
         {"Tables", "Columns", "Indices", "IndexColumns", "ForeignKeys", "ForeignKeyColumns"})
        sql += fmt::format("delete from {0}; insert into {0} select * from f.{0};", table);
    sqlite3* database = nullptr;
    int code = sqlite3_open(to.c_str(), &database);
    const double seconds = bench::Seconds(
        [&] { code = sqlite3_exec(database, (sql + "commit").c_str(), nullptr, nullptr, nullptr); });
    const std::string failure = code == SQLITE_OK ? "" : sqlite3_errmsg(database);
    sqlite3_close(database);
    if (!failure.empty()) throw std::runtime_error(failure);
    return seconds;
}

void Measure(int tables) {
    const bench::Folder folder;
    const auto count = static_cast<std::size_t>(tables);
    const std::string source = folder / "w/DBSchema.mdb";
    const std::string bare = folder / "bare.mdb";
    const auto frontend = MakeWorkspace(folder / "w", tables);
    ComponentState state;
    bench::OpenEditor(state, frontend);
    files::CopyFile(std::string(TESSEL_SHARE) + "/DBSchema.mdb", bare);
    bench::PrintMilliseconds("import of all tables", tables,
                             {Import(state, 0, count), WriteBare(bare, source)},
                             "insert ... select of all rows");
    bench::PrintMilliseconds("import with nothing to do", tables, {Import(state, 0, 0), 0}, "");
    const auto print = [&](const char* figure, double seconds) {
        bench::PrintMilliseconds(figure, tables, {seconds, WriteBare(bare, source)},
                                 "delete and insert ... select of all rows");
    };
    ChangeFirst(*frontend, "2026-02-01T10:00:00");
    print("import after a change", Import(state, count, count));

    ComponentState windowed;
    windowed.questions = std::make_shared<QueuedQuestions>();
    windowed.loadMainWindow = LoadMainWindow;
    qputenv("XDG_CONFIG_HOME", (folder / "config").c_str());
    bench::OpenEditor(windowed, frontend);
    ChangeFirst(*frontend, "2026-02-02T10:00:00");
    print("the same in the window", Import(windowed, count, count));
    windowed.window.reset();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    const QApplication application(count, argv);
    return tessel::bench::Run(argc, argv, Measure);
}
