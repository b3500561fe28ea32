// Any database that the engine makes of the input's statements is loaded into the repository, or refused;
// loading it again changes nothing more.

#include "fuzz/input.h"
#include "fuzz/raw_database.h"
#include "platform/db/constraint_names.h"
#include "support/temporary_folder.h"
#include "workbench/load/load_repository.h"
#include "workbench/load/type_map.h"
#include "workbench/workspace_folder.h"

namespace tessel::fuzz {
namespace {

namespace fs = std::filesystem;

std::string LettersAndDigits(std::string_view name) {
    std::string kept;
    for (const char c : name)
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (!kept.empty() && c >= '0' && c <= '9'))
            kept += c;
    return kept;
}

workbench::LoadOutcome Load(const std::string& workspace, const std::string& source) {
    const auto folder = workbench::WorkspaceFolder::Open(workspace);
    const workbench::NameRule rule = LettersAndDigits;
    return LoadRepository(workbench::ReadSource("sqlite:" + source, folder.Path()),
                          {.folder = folder.Path(),
                           .file = *folder.File(),
                           .templateDatabase = std::string(TESSEL_SHARE) + "/DBSchema.mdb",
                           .nameRule = rule,
                           .now = *ParseIso("2026-01-31T10:00:00")});
}

void LoadTwice(const std::string& workspace, const std::string& source) {
    RenewEngineBudget();
    if (!Succeeds([&] { (void)Load(workspace, source); })) return;
    RenewEngineBudget();
    const auto again = Load(workspace, source);
    Require(again.added.empty() && again.changed.empty() && again.removed.empty(),
            "A source that is loaded again changes the repository.");
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel::fuzz;
    static const tessel::TemporaryFolder folder;
    const std::string sql = Input(data, size).Rest();
    (void)tessel::db::ReadConstraintNames(sql);
    (void)tessel::workbench::MapType(sql);
    RenewEngineBudget();
    fs::remove(folder / "source.db");
    RawDatabase(folder / "source.db").Run(sql);
    tessel::workbench::WorkspaceFolder::Create(folder / "w", "Main");
    LoadTwice(folder / "w", folder / "source.db");
    fs::remove_all(folder / "w");
    return 0;
}
