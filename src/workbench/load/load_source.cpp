#include "workbench/load/load_source.h"

#include <filesystem>

#include "platform/db/sqlite_catalogue.h"
#include "tessel/error.h"

namespace tessel::workbench {
namespace fs = std::filesystem;
namespace {

struct Kind {
    std::string_view name;
    std::string (*placeName)(const std::string& place, const fs::path& workspace);
    db::SourceCatalogue (*read)(const std::string& place);
};

std::string FileName(const std::string& place, const fs::path& workspace) {
    const fs::path file = fs::weakly_canonical(fs::absolute(place));
    const fs::path inside = file.lexically_relative(fs::weakly_canonical(workspace));
    return inside.empty() || *inside.begin() == ".." ? file.string() : inside.string();
}

// The kinds of database that can be read.
constexpr Kind kinds[] = {
    {"sqlite", FileName, db::ReadSqliteCatalogue},
};

}  // namespace

Source ReadSource(const std::string& source, const std::string& workspaceFolder) {
    const auto colon = std::min(source.find(':'), source.size());
    const std::string place = source.substr(std::min(colon + 1, source.size()));
    for (const Kind& kind : kinds) {
        if (kind.name != source.substr(0, colon) || place.empty()) continue;
        return {std::string(kind.name) + ":" + kind.placeName(place, workspaceFolder), kind.read(place)};
    }
    throw Error(ErrorKind::Argument, "\"" + source + "\" names no database; write it as sqlite:PATH.");
}

}  // namespace tessel::workbench
