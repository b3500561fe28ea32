// How long `tessel call` takes for many updates, against the same rows updated by bare prepared statements
// with the same durability.
//
//     bench_calls [COUNT [FOLDER]]
//
// COUNT (10000) is the number of updates; they run in a fresh folder below FOLDER, or below the temporary
// folder.

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench.h"

namespace {

constexpr int columns = 200;
constexpr int rounds = 5;

void Check(int code, sqlite3* database) {
    if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database));
}

void Run(const std::string& command) {
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

double Seconds(const auto& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + rounds / 2, values.end());
    return values[rounds / 2];
}

// A workspace whose one table has `columns` columns.
void MakeWorkspace(const std::string& folder) {
    std::ofstream calls(folder + "/make.jsonl");
    calls << R"({"member":"TableAdd","args":["T",0,null,{"date":"2026-01-31"},null,null]})" << '\n';
    for (int i = 0; i < columns; ++i)
        calls << fmt::format(R"({{"member":"ColumnAdd","args":[1,"C{0}",12,10,0,true,null,null,)"
                             R"({{"date":"2026-01-31"}},null,null,{1},0]}})",
                             i + 1, i == 0 ? -1 : i)
              << '\n';
    calls.close();
    Run(fmt::format("'{0}' new '{1}/works' > '{1}/log'", TESSEL_PROGRAM, folder));
    Run(fmt::format("'{0}' --workspace '{1}/works' call < '{1}/make.jsonl' > '{1}/log'", TESSEL_PROGRAM,
                    folder));
}

void WriteCalls(const std::string& file, int count) {
    std::ofstream calls(file);
    for (int i = 0; i < count; ++i)
        calls
            << fmt::format(
                   R"({{"id":{0},"member":"ColumnUpdate","args":[{1},{{"missing":true}},{{"missing":true}},)"
                   R"({2},0,true,"comment {0}"]}})",
                   i, i % columns + 1, i % 100 + 1)
            << '\n';
}

// A prepared statement that is run again and again.
class Statement {
  public:
    Statement(sqlite3* database, const char* sql) : database_(database) {
        Check(sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr), database);
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void Bind(int position, int value) { Check(sqlite3_bind_int(statement_, position, value), database_); }
    void Bind(int position, const std::string& value) {
        Check(sqlite3_bind_text(statement_, position, value.c_str(), -1, SQLITE_TRANSIENT), database_);
    }
    void Run() {
        Check(sqlite3_step(statement_), database_);
        Check(sqlite3_reset(statement_), database_);
    }

  private:
    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
};

void UpdateBare(const std::string& file, int count) {
    sqlite3* database = nullptr;
    Check(sqlite3_open(file.c_str(), &database), database);
    Check(sqlite3_exec(database, "pragma journal_mode=persist; pragma synchronous=full", nullptr, nullptr,
                       nullptr),
          database);
    {
        Statement begin(database, "begin immediate");
        Statement update(database,
                         "update Columns set Precision=?,Scale=0,IsNullable=1,Comments=? where ColumnID=?");
        Statement unmark(database, "delete from ProjectSettings where PropName='Verified'");
        Statement commit(database, "commit");
        for (int i = 0; i < count; ++i) {
            begin.Run();
            update.Bind(1, i % 100 + 1);
            update.Bind(2, fmt::format("comment {}", i));
            update.Bind(3, i % columns + 1);
            update.Run();
            unmark.Run();
            commit.Run();
        }
    }
    sqlite3_close(database);
}

// Both ways in turn, so that what else the machine does falls on both.
void Measure(int count, const std::string& parent) {
    const tessel::bench::Folder fresh(parent);
    const std::string& folder = fresh.Path();
    MakeWorkspace(folder);
    WriteCalls(folder + "/calls.jsonl", count / rounds);
    std::vector<double> ours, bare, ratios;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(Seconds([&] {
            Run(fmt::format("'{0}' --workspace '{1}/works' call < '{1}/calls.jsonl' > '{1}/log'",
                            TESSEL_PROGRAM, folder));
        }));
        bare.push_back(
            Seconds([&] { UpdateBare(folder + "/works/Projects/Main/DBSCHEMA/Main.mdb", count / rounds); }));
        ratios.push_back(ours.back() / bare.back());
    }
    fmt::print("{} rounds of {} updates, medians\n", rounds, count / rounds);
    fmt::print("{:>12} {:>12} {:>8}\n", "tessel call", "bare", "ratio");
    fmt::print("{:>10.2f} s {:>10.2f} s {:>8.2f}\n", Median(ours), Median(bare), Median(ratios));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Measure(argc > 1 ? std::stoi(argv[1]) : 10'000,
                argc > 2 ? argv[2] : std::filesystem::temp_directory_path().string());
        return 0;
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_calls: {}\n", error.what());
        return 1;
    }
}
