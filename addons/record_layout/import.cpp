#include "import.h"

#include <algorithm>
#include <filesystem>

#include "shared/progress.h"
#include "tessel/date_time.h"
#include "tessel/error.h"

namespace tessel::layout {

namespace {

namespace fs = std::filesystem;

constexpr const char* createdVia = "RecordLayout";
constexpr std::int32_t columnsInAStep = 100;

// The path from the folder on; the whole path where it leads elsewhere.
std::string FromFolder(const std::string& file, const fs::path& folder) {
    std::error_code failure;
    const fs::path path = fs::weakly_canonical(file, failure);
    if (failure) return file;
    const fs::path inside = path.lexically_relative(folder);
    return inside.empty() || *inside.begin() == ".." ? path.string() : inside.string();
}

std::int32_t MakeTable(VNTWS& workspace, const std::string& name, const std::string& origin) {
    std::int32_t tabID = 0;
    return workspace.TableAdd(name, tabID, Null{}, Now(), createdVia, origin) ? tabID : 0;
}

bool ImportColumn(VNTWS& workspace, std::int32_t tabID, const NewColumn& column, const std::string& origin) {
    std::string name;
    const std::int32_t columnID = workspace.ColumnImport(tabID, column.name, column.typeID, column.precision,
                                                         column.scale, Now(), createdVia, origin, name);
    // Naming the type again takes out a precision that it has no use for.
    return columnID > 0 && workspace.ColumnUpdate(columnID, Missing{}, column.typeID, Missing{}, Missing{},
                                                  Missing{}, column.comment, Missing{});
}

}  // namespace

Origins::Origins(const std::vector<std::string>& files, const std::string& workspaceFolder) {
    std::error_code failure;
    const fs::path folder = fs::weakly_canonical(workspaceFolder, failure);
    for (const auto& file : files) files_.push_back(FromFolder(file, folder));
}

std::string Origins::Of(Place place) const {
    return "text:" + files_[static_cast<std::size_t>(place.file)] + ":" + std::to_string(place.line);
}

std::int32_t ImportColumns(VNTWS& workspace, const Target& target, const std::vector<NewColumn>& columns,
                           const Origins& origins, Place recordPlace, Language language) {
    const auto require = [&](bool isDone, Text text, const std::string& name) {
        if (!isDone) throw Error(ErrorKind::Constraint, Phrase(language, text, {name}));
    };
    const auto total = static_cast<std::int32_t>(columns.size());
    tool::Progress progress(workspace, Phrase(language, Text::Importing), total);
    const std::int32_t tabID =
        target.tabID != 0 ? target.tabID : MakeTable(workspace, target.name, origins.Of(recordPlace));
    require(tabID > 0, Text::TableRefused, target.name);
    std::int32_t done = 0;
    for (const auto& column : columns) {
        if (done++ % columnsInAStep == 0)
            progress.Step(column.name, std::min(columnsInAStep, total - done + 1));
        require(ImportColumn(workspace, tabID, column, origins.Of(column.place)), Text::ColumnRefused,
                column.name);
    }
    return tabID;
}

}  // namespace tessel::layout
