#include "import.h"

#include <algorithm>
#include <filesystem>

#include "tessel/date_time.h"

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

// The editor's progress display, ended whatever happens.
class Progress {
  public:
    Progress(VNTWS& workspace, const std::string& action, std::int32_t total) : workspace_(workspace) {
        workspace_.StartProgress(action, total);
    }
    ~Progress() {
        try {
            workspace_.FinishProgress();
        } catch (const std::exception&) {  // the import is what counts
        }
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Step() {
        if (++done_ % columnsInAStep == 0) workspace_.FinishStep(columnsInAStep);
    }

  private:
    VNTWS& workspace_;
    std::int32_t done_ = 0;
};

void MakeTable(VNTWS& workspace, Target& target, const std::string& origin) {
    std::string wanted = target.name;
    target.name = workspace.GetFreeTableName(wanted);
    if (!workspace.TableAdd(target.name, target.tabID, Null{}, Now(), createdVia, origin))
        throw Complaint(Text::TableRefused, {wanted});
}

void ImportColumn(VNTWS& workspace, std::int32_t tabID, const NewColumn& column, const std::string& origin) {
    std::string name;
    const std::int32_t columnID = workspace.ColumnImport(tabID, column.name, column.typeID, column.precision,
                                                         column.scale, Now(), createdVia, origin, name);
    // Naming the type again takes out a precision that it has no use for.
    if (columnID < 1 || !workspace.ColumnUpdate(columnID, Missing{}, column.typeID, Missing{}, Missing{},
                                                Missing{}, column.comment, Missing{}))
        throw Complaint(Text::ColumnRefused, {column.name});
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

std::int32_t ImportColumns(VNTWS& workspace, Target& target, const std::vector<NewColumn>& columns,
                           const Origins& origins, Place recordPlace, Language language) {
    Progress progress(workspace, Phrase(language, Text::Importing),
                      static_cast<std::int32_t>(columns.size()));
    if (target.tabID == 0) MakeTable(workspace, target, origins.Of(recordPlace));
    for (const auto& column : columns) {
        ImportColumn(workspace, target.tabID, column, origins.Of(column.place));
        progress.Step();
    }
    return target.tabID;
}

}  // namespace tessel::layout
