// Measures `tessel call` on generated schemas: its start, and many updates, each one durable
// transaction, against the same rows written by bare prepared statements with the same durability:
// bench_calls [TABLES...]

#include <fstream>

#include "bench.h"
#include "generate_schema.h"
#include "statement.h"

namespace {

using namespace tessel;

constexpr int calls = 2000;

void Run(const std::string& command) {
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

// The column that a call is about: spread over all tables.
int ColumnOf(int call, int tables) { return call * 7919 % (tables * bench::columnsPerTable) + 1; }

void WriteUpdates(const std::string& file, int tables) {
    std::ofstream lines(file);
    for (int i = 0; i < calls; ++i)
        lines << fmt::format(
            R"({{"id":{0},"member":"ColumnUpdate","args":[{1},{{"missing":true}},{{"missing":true}},)"
            R"({2},0,true,"comment {0}"]}})"
            "\n",
            i, ColumnOf(i, tables), i % 100 + 1);
}

double Call(const std::string& workspace, const std::string& lines) {
    return bench::Seconds([&] {
        Run(fmt::format("'{}' --workspace '{}' call < '{}' > /dev/null", TESSEL_PROGRAM, workspace, lines));
    });
}

void UpdateBare(const std::string& file, int tables) {
    const bench::Connection connection(file);
    bench::Statement begin(connection, "begin immediate");
    bench::Statement update(
        connection, "update Columns set Precision=?,Scale=0,IsNullable=1,Comments=? where ColumnID=?");
    bench::Statement unmark(connection, "delete from ProjectSettings where PropName='Verified'");
    bench::Statement commit(connection, "commit");
    for (int i = 0; i < calls; ++i) {
        begin.Run();
        update.Bind(1, i % 100 + 1);
        update.Bind(2, fmt::format("comment {}", i));
        update.Bind(3, ColumnOf(i, tables));
        update.Run();
        unmark.Run();
        commit.Run();
    }
}

void Measure(int tables) {
    const bench::Folder folder;
    const std::string workspace = folder / "w";
    setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    bench::GenerateWorkspace(TESSEL_SHARE, workspace, tables);
    const std::string database = bench::SchemaFile(workspace);
    WriteUpdates(folder / "updates", tables);
    std::ofstream(folder / "none");
    const int rounds = bench::RoundsFor(tables);
    const bench::Pair start = bench::Compare(
        rounds, [&] { return Call(workspace, folder / "none"); },
        [&] { return bench::Seconds([&] { bench::Connection(database).Run("pragma quick_check(1)"); }); });
    bench::PrintMilliseconds("start of tessel call", tables, start, "opening and quick_check");
    const bench::Pair updates = bench::Compare(
        rounds, [&] { return Call(workspace, folder / "updates") - start.own; },
        [&] { return bench::Seconds([&] { UpdateBare(database, tables); }); });
    bench::PrintFigure("tessel call, an update", tables,
                       {updates.own / calls * 1e6, updates.bound / calls * 1e6}, "us", "bare update");
}

}  // namespace

int main(int argc, char** argv) { return tessel::bench::Run(argc, argv, Measure); }
