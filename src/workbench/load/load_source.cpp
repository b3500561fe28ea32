#include "workbench/load/load_source.h"

#include <filesystem>

#include "platform/db/postgres_catalogue.h"
#include "platform/db/sqlite_catalogue.h"
#include "platform/files/file_error.h"
#include "tessel/error.h"

namespace tessel::workbench {
namespace fs = std::filesystem;
namespace {

// The full path, links followed as far as it is there.
fs::path FullPath(const fs::path& path) {
    std::error_code fault;
    fs::path full = fs::absolute(path, fault);
    if (!fault) full = fs::weakly_canonical(full, fault);
    if (fault) files::ThrowReadError("path", path.string(), "followed", fault.value());
    return full;
}

std::string FileName(const std::string& place, const fs::path& workspace) {
    const fs::path file = FullPath(place);
    const fs::path inside = file.lexically_relative(FullPath(workspace));
    return inside.empty() || *inside.begin() == ".." ? file.string() : inside.string();
}

Source ReadSqlite(const std::string& place, const fs::path& workspace) {
    return {"sqlite:" + FileName(place, workspace), db::ReadSqliteCatalogue(place)};
}

// A connection in the form of a URI has the word before the colon for a part of it.
Source ReadPostgres(const std::string& place, const fs::path&) {
    auto [name, catalogue] =
        db::ReadPostgresCatalogue(place.starts_with("//") ? "postgresql:" + place : place);
    return {"postgresql:" + name, std::move(catalogue)};
}

struct Kind {
    std::string_view name;
    Source (*read)(const std::string& place, const fs::path& workspace);
};

// The kinds of database that can be read.
constexpr Kind kinds[] = {
    {"sqlite", ReadSqlite},
    {"postgresql", ReadPostgres},
    {"postgres", ReadPostgres},
};

}  // namespace

Source ReadSource(const std::string& source, const std::string& workspaceFolder) {
    const auto colon = std::min(source.find(':'), source.size());
    const std::string place = source.substr(std::min(colon + 1, source.size()));
    for (const Kind& kind : kinds)
        if (kind.name == source.substr(0, colon) && !place.empty()) return kind.read(place, workspaceFolder);
    const bool mayHoldPassword = source.find_first_of("=@") != std::string::npos;
    throw Error(ErrorKind::Argument, (mayHoldPassword ? "The source" : "\"" + source + "\"") +
                                         " names no database; write it as sqlite:PATH or "
                                         "postgresql:CONNECTION.");
}

}  // namespace tessel::workbench
