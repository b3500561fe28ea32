#include "cli/import_command.h"

#include <fmt/format.h>

#include <algorithm>

#include "cli/exit_codes.h"
#include "cli/headless_session.h"
#include "cli/output.h"
#include "import/import_db_schema.h"

namespace tessel {

namespace {

std::vector<std::string> Sorted(std::vector<std::string> names) {
    std::ranges::sort(names);
    return names;
}

// The names that stand in the first list only.
void PrintMissing(const char* label, const std::vector<std::string>& names,
                  const std::vector<std::string>& others) {
    std::vector<std::string> missing;
    std::ranges::set_difference(Sorted(names), Sorted(others), std::back_inserter(missing));
    for (const auto& name : missing) PrintLine(fmt::format("{}: {}", label, name));
}

void Print(const ImportOutcome& outcome) {
    if (outcome.dropped.empty() && outcome.added.empty())
        fmt::print("{} linked table(s), nothing to do\n", outcome.matched);
    else
        fmt::print("{} table(s) dropped, {} added\n", outcome.dropped.size(), outcome.added.size());
    PrintMissing("new", outcome.added, outcome.dropped);
    PrintMissing("gone", outcome.dropped, outcome.added);
    for (const auto& [given, name] : outcome.renamed)
        PrintLine(fmt::format("renamed: {}: it is called {} here", given, name));
    for (const auto& [what, reason] : outcome.leftOut)
        PrintLine(fmt::format("left out: {}: {}", what, reason));
}

}  // namespace

int ImportCommand(const SessionOptions& options) {
    const auto headless = OpenHeadless(options);
    ComponentState& state = headless.State();
    const ImportOutcome outcome = modImportDBSchema(state).SyncDBSchema();
    state.window->FinishProgress();
    if (!outcome.failure || !outcome.dropped.empty() || !outcome.added.empty()) Print(outcome);
    if (!outcome.failure) return 0;
    Complain(state.texts->Text(1220) + ": " + *outcome.failure);
    return failureCode;
}

}  // namespace tessel
