// Measures the verification of generated schemas against the least that it could take: bench_verify
// [TABLES...]

#include "bench.h"
#include "generate_schema.h"
#include "schema/project_settings.h"
#include "verify/db_check.h"
#include "verify_bound.h"

namespace {

using namespace tessel;

void Measure(int tables) {
    const bench::Folder folder;
    ComponentState state;
    bench::OpenEditor(state, bench::GenerateWorkspace(TESSEL_SHARE, folder / "w", tables));
    int counted = 0;
    const bench::Pair seconds = bench::Compare(
        bench::RoundsFor(tables),
        [&] {
            RemoveVerifiedMark(state.Database());
            return bench::Seconds([&] { DBCheck(state).VerifySchema(true); });
        },
        [&] { return bench::Seconds([&] { counted = bench::CountFindings(state.Database().Path()); }); });
    const auto findings = DBCheck(state).StoredErrors().size();
    if (std::cmp_not_equal(findings, counted))
        throw std::runtime_error(
            fmt::format("The scans count {} findings, the verification {}.", counted, findings));
    bench::PrintMilliseconds("verification", tables, seconds, "six scans, merged in memory");
}

}  // namespace

int main(int argc, char** argv) { return tessel::bench::Run(argc, argv, Measure); }
