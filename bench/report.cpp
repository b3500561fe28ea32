// Measures how fast the page of a generated schema is written, against writing as many bytes:
// bench_report [TABLES...]
//
// Every section lists all tables, so the page grows with the square of their number. The page of a large
// schema is written to /dev/null in place of a file; beyond 10,000 tables, gigabytes, none is written.

#include <cstring>
#include <fstream>

#include "bench.h"
#include "engine/scrivo_add_on.h"
#include "generate_schema.h"
#include "platform/diagram/diagram.h"
#include "workbench/generator.h"
#include "workbench/stand_alone_frontend.h"

namespace {

namespace fs = std::filesystem;
using namespace tessel;

constexpr int largestOnDisk = 2000;
constexpr int largest = 10000;
constexpr std::size_t pieceSize = 1 << 18;

// A page without its diagram, which has a measurement of its own.
double WritePage(const std::string& workspace) {
    ComponentState state;
    const auto frontend = std::make_shared<workbench::StandAloneFrontend>(
        workbench::WorkspaceFolder::Open(workspace), "Main", std::string(TESSEL_SHARE));
    const auto generator =
        std::make_shared<workbench::StandAloneGenerator>(workbench::StandAloneGenerator::Settings{
            workspace + "/Output", TESSEL_SHARE, "Bench", "en", [] { return diagram::Diagram(); }});
    const auto page = std::make_shared<workbench::GeneratorPage>("Main", "Main");
    std::int32_t code = 0;
    const double seconds = bench::Seconds([&] { code = ScrivoAddOn(state).Run(frontend, generator, page); });
    if (code != 0) throw std::runtime_error("The page was not written.");
    return seconds;
}

double WriteBytes(const std::string& file, double bytes) {
    return bench::Seconds([&] {
        std::ofstream out(file, std::ios::binary);
        const std::string source(pieceSize, 'x');
        std::string piece(pieceSize, '\0');
        for (double left = bytes; left > 0; left -= pieceSize) {
            std::memcpy(piece.data(), source.data(), pieceSize);
            out.write(piece.data(), static_cast<std::streamsize>(std::min<double>(left, pieceSize)));
        }
    });
}

// The list of all tables in each section makes nearly all of a page that is not kept.
double PageSize(const std::string& file, int tables) {
    if (tables <= largestOnDisk) return static_cast<double>(fs::file_size(file));
    const auto link =
        static_cast<double>(std::strlen("<a href=\"#Table:TABLE_00001\"> TABLE_00001</a> &#149 "));
    return link * tables * tables;
}

void Measure(int tables) {
    if (tables > largest) return;
    const bench::Folder folder;
    bench::GenerateWorkspace(TESSEL_SHARE, folder / "w", tables);
    const std::string file = folder / "w/Output/Main/Main.htm";
    fs::create_directories(fs::path(file).parent_path());
    if (tables > largestOnDisk) fs::create_symlink("/dev/null", file);
    const std::string bare = tables > largestOnDisk ? "/dev/null" : folder / "bare";
    const int rounds = tables > largestOnDisk ? 1 : bench::RoundsFor(tables);
    const bench::Pair seconds = bench::Compare(
        rounds, [&] { return WritePage(folder / "w"); },
        [&] { return WriteBytes(bare, PageSize(file, tables)); });
    bench::PrintMilliseconds("report page", tables, seconds, "writing as many bytes");
    bench::PrintFigure("size of the report page", tables, {PageSize(file, tables) / 1e6, 0}, "MB", "");
}

}  // namespace

int main(int argc, char** argv) { return tessel::bench::Run(argc, argv, Measure); }
