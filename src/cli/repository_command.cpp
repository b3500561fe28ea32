#include "cli/repository_command.h"

#include <fmt/format.h>

#include "cli/output.h"
#include "schema/identifiers.h"
#include "workbench/load/load_repository.h"
#include "workbench/workspace_folder.h"

namespace tessel {

namespace {

void PrintNames(const char* label, const std::vector<std::string>& names) {
    for (const auto& name : names) PrintLine(fmt::format("{}: {}", label, name));
}

void Print(const workbench::LoadOutcome& outcome, const std::string& source) {
    PrintLine(fmt::format("{}: {} table(s), {} view(s); {} new, {} changed, {} gone", source, outcome.tables,
                          outcome.views, outcome.added.size(), outcome.changed.size(),
                          outcome.removed.size()));
    PrintNames("new", outcome.added);
    PrintNames("changed", outcome.changed);
    PrintNames("gone", outcome.removed);
    for (const auto& [what, remark] : outcome.notes) PrintLine(fmt::format("note: {}: {}", what, remark));
}

// The repository belongs to all projects, so any of them will do.
SessionOptions WithAnyProject(SessionOptions options, const workbench::WorkspaceFolder& folder) {
    const auto projects = folder.Projects();
    if (!options.project && !projects.empty()) options.project = projects.front();
    return options;
}

}  // namespace

int RepositoryLoadCommand(const SessionOptions& options, const std::string& source) {
    const auto folder = workbench::WorkspaceFolder::Open(options.workspace.value_or("."));
    const auto session = OpenSession(WithAnyProject(options, folder));
    session->state.frontend = session->frontend;
    const auto read = workbench::ReadSource(source, folder.Path());
    const auto rule = [&](std::string_view name) { return SQLID(session->state, name); };
    const auto outcome = workbench::LoadRepository(
        read,
        {.folder = folder.Path(),
         .file = *folder.File(),
         .templateDatabase = session->frontend->GetCorvaneName(host::name_item::templates) + "/DBSchema.mdb",
         .nameRule = rule,
         .now = Now()});
    Print(outcome, read.name);
    return 0;
}

}  // namespace tessel
