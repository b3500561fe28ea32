// Measures add-ons on generated schemas, each in a process of its own: small calls through the pipe, against
// as many lines to and from a bare child process; a query of all columns; the SQL script of the schema:
// bench_add_on [TABLES...]

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <fstream>

#include "bench.h"
#include "generate_schema.h"
#include "statement.h"
#include "verify_bound.h"

namespace {

using namespace tessel;

constexpr int calls = 20000;
constexpr const char* query = "select * from Columns";

double RunTool(const std::string& workspace, const std::string& progID, const std::string& parameter) {
    const std::string command = fmt::format("'{}' --workspace '{}' addon run {} '{}' > /dev/null 2>&1",
                                            TESSEL_PROGRAM, workspace, progID, parameter);
    return bench::Seconds([&] {
        if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
    });
}

void Transfer(int from, int to, int count) {
    std::array<char, 64> line{};
    for (; count > 0; --count) {
        if (read(from, line.data(), line.size()) != std::ssize(line)) return;
        if (write(to, line.data(), line.size()) != std::ssize(line)) return;
    }
}

// A line of 64 bytes to a child process and back, so many times.
double Echo(int count) {
    return bench::Seconds([&] {
        std::array<int, 2> there{};
        std::array<int, 2> back{};
        if (pipe(there.data()) != 0 || pipe(back.data()) != 0) throw std::runtime_error("No pipe.");
        const pid_t child = fork();
        if (child == 0) {
            Transfer(there[0], back[1], count);
            _exit(0);
        }
        const std::array<char, 64> line{};
        if (write(there[1], line.data(), line.size()) != std::ssize(line))
            throw std::runtime_error("No child.");
        Transfer(back[0], there[1], count - 1);
        waitpid(child, nullptr, 0);
        for (const int end : {there[0], there[1], back[0], back[1]}) close(end);
    });
}

double ReadBare(const std::string& file) {
    return bench::Seconds([&] {
        const bench::Connection connection(file);
        std::vector<std::string> rows;
        for (bench::Statement select(connection, query); select.Next();) rows.push_back(select.Row());
    });
}

// Reads all rows, and writes as many bytes as the script has.
double ScanAndWrite(const std::string& database, const std::string& script, const std::string& bare) {
    const auto size = std::filesystem::file_size(script);
    return bench::Seconds([&] {
        (void)bench::CountFindings(database);
        std::ofstream(bare, std::ios::binary) << std::string(size, 'x');
    });
}

void Register(const std::string& config) {
    setenv("XDG_CONFIG_HOME", config.c_str(), 1);
    if (std::system("'" TESSEL_PROGRAM "' register '" BENCH_TOOL "' > /dev/null") != 0)
        throw std::runtime_error("The tool cannot be registered.");
}

void Measure(int tables) {
    const bench::Folder folder;
    const std::string workspace = folder / "w";
    Register(folder / "config");
    bench::GenerateWorkspace(TESSEL_SHARE, workspace, tables);
    const std::string database = bench::SchemaFile(workspace);
    const int rounds = bench::RoundsFor(tables);
    std::vector<double> starts;
    for (int i = 0; i < rounds; ++i) starts.push_back(RunTool(workspace, "Bench.Caller", "0"));
    const double start = bench::Median(starts);
    bench::PrintMilliseconds("start and end of an add-on", tables, {start, 0}, "");

    const bench::Pair small = bench::Compare(
        rounds, [&] { return RunTool(workspace, "Bench.Caller", std::to_string(calls)) - start; },
        [] { return Echo(calls); });
    bench::PrintFigure("add-on, a call", tables, {small.own / calls * 1e6, small.bound / calls * 1e6}, "us",
                       "line to a child and back");

    const bench::Pair read = bench::Compare(
        rounds, [&] { return RunTool(workspace, "Bench.Caller", query) - start; },
        [&] { return ReadBare(database); });
    bench::PrintMilliseconds("add-on reads all columns", tables, read, "bare scan of the rows");

    const std::string script = folder / "script.sql";
    const bench::Pair written = bench::Compare(
        rounds,
        [&] { return RunTool(workspace, "Tessel.SqlScript", "dialect=postgresql;file=" + script) - start; },
        [&] { return ScanAndWrite(database, script, folder / "bare"); });
    bench::PrintMilliseconds("SQL script", tables, written, "six scans and as many bytes");
}

}  // namespace

int main(int argc, char** argv) { return tessel::bench::Run(argc, argv, Measure); }
