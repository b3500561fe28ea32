// Measures the verification of generated schemas against the least that it could take: bench_verify
// [TABLES...]

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <limits>

#include "bench.h"
#include "engine/tessel_engine.h"
#include "generate_schema.h"
#include "schema/project_settings.h"
#include "verify/db_check.h"
#include "verify_bound.h"
#include "workbench/stand_alone_frontend.h"

namespace {

using namespace tessel;

constexpr int rounds = 5;

// A project whose database holds a generated schema.
void Open(ComponentState& state, const std::string& workspace, int tables) {
    auto folder = workbench::WorkspaceFolder::Create(workspace, "Main");
    const std::string schemas = workspace + "/Projects/Main/DBSCHEMA";
    std::filesystem::create_directory(schemas);
    bench::GenerateSchema(TESSEL_SHARE, schemas + "/Main.mdb", tables);
    auto frontend =
        std::make_shared<workbench::StandAloneFrontend>(std::move(folder), "Main", std::string(TESSEL_SHARE));
    if (TesselEngine(state).Run(frontend, Missing{}, Missing{}) != 0)
        throw std::runtime_error("The generated schema does not open.");
}

template <typename Action>
double Seconds(Action&& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Figures {
    double verification = std::numeric_limits<double>::infinity();  // seconds, the best of all rounds
    double bound = std::numeric_limits<double>::infinity();
    double peak = 0;  // megabytes
    std::size_t findings = 0;
};

void RunRound(ComponentState& state, Figures& figures) {
    RemoveVerifiedMark(state.Database());
    figures.verification =
        std::min(figures.verification, Seconds([&] { DBCheck(state).VerifySchema(true); }));
    if (figures.peak == 0) figures.peak = bench::PeakMegabytes();
    int counted = 0;
    figures.bound =
        std::min(figures.bound, Seconds([&] { counted = bench::CountFindings(state.Database().Path()); }));
    figures.findings = DBCheck(state).StoredErrors().size();
    if (std::cmp_not_equal(figures.findings, counted))
        throw std::runtime_error(
            fmt::format("The scans count {} findings, the verification {}.", counted, figures.findings));
}

Figures Measure(int tables) {
    const bench::Folder folder;
    ComponentState state;
    Open(state, folder / "w", tables);
    Figures figures;
    for (int i = 0; i < rounds; ++i) RunRound(state, figures);
    return figures;
}

void Report(const std::vector<int>& sizes) {
    fmt::print("{:>7} {:>9} {:>9} {:>6} {:>9} {:>8}\n", "tables", "verify ms", "bound ms", "ratio",
               "findings", "peak MB");
    std::vector<double> times;
    for (const int tables : sizes) {
        const Figures f = Measure(tables);
        times.push_back(f.verification);
        fmt::print("{:>7} {:>9.1f} {:>9.1f} {:>6.2f} {:>9} {:>8.1f}\n", tables, f.verification * 1000,
                   f.bound * 1000, f.verification / f.bound, f.findings, f.peak);
    }
    bench::PrintGrowth(sizes, times);
}

}  // namespace

int main(int argc, char** argv) { return tessel::bench::Run(argc, argv, Report); }
