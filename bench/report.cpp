// Measures how fast the page of a generated schema is written: bench_report [TABLES...]
//
// Every section lists all tables, so the page grows with the square of their number; the bytes of these lists
// are given beside the time. The page of a large schema is written to /dev/null in place of a file.

#include <fmt/format.h>

#include <chrono>
#include <filesystem>
#include <limits>

#include "bench.h"
#include "engine/scrivo_add_on.h"
#include "generate_schema.h"
#include "platform/files/file_service.h"
#include "report/create_report.h"
#include "report/schema_diagram.h"
#include "workbench/generator.h"
#include "workbench/stand_alone_frontend.h"

namespace {

namespace fs = std::filesystem;
using namespace tessel;

constexpr int rounds = 3;
constexpr int largestOnDisk = 2000;

double Now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

struct Figures {
    double whole = std::numeric_limits<double>::infinity();    // seconds, the best of all rounds
    double diagram = std::numeric_limits<double>::infinity();  // the part of it that draws the diagram
    double megabytes = 0;                                      // of the page; 0 when it was not kept
    double peak = 0;                                           // megabytes of memory
};

// A generator that measures how long the drawing takes.
class TimedGenerator : public workbench::StandAloneGenerator {
  public:
    using StandAloneGenerator::StandAloneGenerator;
    std::string DiagramFragment(const std::string& diagramFile, const std::string& pageName) override {
        const double start = Now();
        auto fragment = StandAloneGenerator::DiagramFragment(diagramFile, pageName);
        seconds = Now() - start;
        return fragment;
    }

    double seconds = 0;
};

void MakeWorkspace(const std::string& path, int tables) {
    auto folder = workbench::WorkspaceFolder::Create(path, "Main");
    fs::create_directory(path + "/Projects/Main/DBSCHEMA");
    bench::GenerateSchema(TESSEL_SHARE, path + "/Projects/Main/DBSCHEMA/Main.mdb", tables);
    workbench::StoredRepository repository(folder.File());
    auto schema = repository.NewObject("DBSCHEMA", "Main");
    schema->BeginChange();
    schema->SetAttribute("Source", "Projects\\Main\\DBSCHEMA\\Main.mdb");
    schema->EndChange();
}

void RunOnce(const std::string& path, Figures& figures) {
    ComponentState state;
    const auto frontend = std::make_shared<workbench::StandAloneFrontend>(
        workbench::WorkspaceFolder::Open(path), "Main", std::string(TESSEL_SHARE));
    const auto generator = std::make_shared<TimedGenerator>(workbench::StandAloneGenerator::Settings{
        path + "/Output", TESSEL_SHARE, "Bench", "en", [&] { return SchemaDiagram(state.Database()); }});
    const auto page = std::make_shared<workbench::GeneratorPage>("Main", "Main");
    const double start = Now();
    if (ScrivoAddOn(state).Run(frontend, generator, page) != 0)
        throw std::runtime_error("The page was not written.");
    figures.whole = std::min(figures.whole, Now() - start);
    figures.diagram = std::min(figures.diagram, generator->seconds);
}

Figures Measure(int tables) {
    const bench::Folder folder;
    MakeWorkspace(folder / "w", tables);
    const std::string file = folder / "w/Output/Main/Main.htm";
    fs::create_directories(fs::path(file).parent_path());
    if (tables > largestOnDisk) fs::create_symlink("/dev/null", file);
    Figures figures;
    for (int i = 0; i < rounds; ++i) RunOnce(folder / "w", figures);
    if (tables <= largestOnDisk) figures.megabytes = static_cast<double>(fs::file_size(file)) / 1e6;
    figures.peak = bench::PeakMegabytes();
    return figures;
}

void Report(const std::vector<int>& sizes) {
    fmt::print("{:>7} {:>9} {:>11} {:>11} {:>8} {:>8}\n", "tables", "page ms", "diagram ms", "tables/s",
               "page MB", "peak MB");
    std::vector<double> times;
    for (const int tables : sizes) {
        const Figures f = Measure(tables);
        times.push_back(f.whole - f.diagram);
        fmt::print("{:>7} {:>9.1f} {:>11.1f} {:>11.0f} {:>8.1f} {:>8.1f}\n", tables, times.back() * 1000,
                   f.diagram * 1000, tables / times.back(), f.megabytes, f.peak);
    }
    bench::PrintGrowth(sizes, times);
}

}  // namespace

int main(int argc, char** argv) { return tessel::bench::Run(argc, argv, Report); }
