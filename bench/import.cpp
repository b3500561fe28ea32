// Measures the import of generated repositories into an empty project, its repetition after one object has
// changed, and the look that finds nothing to do: bench_import [TABLES...]

#include <fmt/format.h>

#include <chrono>
#include <stdexcept>
#include <vector>

#include "bench.h"
#include "engine/tessel_engine.h"
#include "generate_schema.h"
#include "import/import_db_schema.h"
#include "workbench/stand_alone_frontend.h"

namespace {

using namespace tessel;

struct Figures {
    double add = 0;    // seconds: all tables into an empty project
    double renew = 0;  // all dropped and added again
    double look = 0;   // nothing to do
    double peak = 0;   // megabytes
};

// A project without tables, in a workspace whose repository holds so many.
void Open(ComponentState& state, const std::string& workspace, int tables) {
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
    auto frontend =
        std::make_shared<workbench::StandAloneFrontend>(std::move(folder), "Main", std::string(TESSEL_SHARE));
    if (TesselEngine(state).Run(frontend, Missing{}, Missing{}) != 0)
        throw std::runtime_error("The project does not open.");
}

// The seconds that a run takes that must drop and add so many tables.
double Import(ComponentState& state, std::size_t dropped, std::size_t added) {
    const auto start = std::chrono::steady_clock::now();
    const ImportOutcome outcome = modImportDBSchema(state).SyncDBSchema();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    if (outcome.failure) throw std::runtime_error(*outcome.failure);
    if (outcome.dropped.size() != dropped || outcome.added.size() != added)
        throw std::runtime_error("The import did not drop and add the tables that it should.");
    return time.count();
}

Figures Measure(int tables) {
    const bench::Folder folder;
    const auto count = static_cast<std::size_t>(tables);
    ComponentState state;
    Open(state, folder / "w", tables);
    Figures figures;
    figures.add = Import(state, 0, count);
    figures.look = Import(state, 0, 0);
    state.frontend->RepositoryOf()
        ->FindObject("TABLE", "TABLE_00001")
        ->SetAttribute("Modified", "2026-02-01T10:00:00");
    figures.renew = Import(state, count, count);
    figures.peak = bench::PeakMegabytes();
    return figures;
}

void Report(const std::vector<int>& sizes) {
    fmt::print("{:>7} {:>8} {:>9} {:>8} {:>9} {:>8} {:>8}\n", "tables", "add s", "tables/s", "renew s",
               "tables/s", "look s", "peak MB");
    std::vector<double> times;
    for (const int tables : sizes) {
        const Figures f = Measure(tables);
        times.push_back(f.add);
        fmt::print("{:>7} {:>8.2f} {:>9.0f} {:>8.2f} {:>9.0f} {:>8.3f} {:>8.1f}\n", tables, f.add,
                   tables / f.add, f.renew, tables / f.renew, f.look, f.peak);
    }
    bench::PrintGrowth(sizes, times);
}

}  // namespace

int main(int argc, char** argv) { return tessel::bench::Run(argc, argv, Report); }
