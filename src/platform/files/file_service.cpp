#include "platform/files/file_service.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "platform/files/descriptor.h"
#include "platform/files/file_error.h"
#include "platform/files/left_behind.h"
#include "tessel/error.h"

namespace tessel::files {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view separators = "/\\";

void RefusePart(std::string_view path, const std::string& what) {
    throw Error(ErrorKind::File,
                "The path " + std::string(path) + " holds " + what + ", which no path may hold.");
}

void CheckParts(std::string_view path) {
    if (path.find('\0') != std::string_view::npos)
        RefusePart(path.substr(0, path.find('\0')), "a NUL character");
    for (auto rest = path;;) {
        const auto end = rest.find_first_of(separators);
        if (rest.substr(0, end) == "..") RefusePart(path, "the part '..'");
        if (end == std::string_view::npos) return;
        rest.remove_prefix(end + 1);
    }
}

// The kind of thing at the path, links followed; not_found when there is none.
fs::file_type TypeAt(const std::string& path) {
    std::error_code fault;
    const auto type = fs::status(path, fault).type();
    if (type == fs::file_type::none) ThrowReadError("path", path, "examined", fault.value());
    return type;
}

fs::path ParentOf(const fs::path& folder) {
    return (folder.has_filename() ? folder : folder.parent_path()).parent_path();
}

// Gives the folder another name, so that no part of it is left under its own when the program is killed
// while it deletes the rest. Where it cannot be renamed it keeps its name.
fs::path SetAside(const fs::path& folder) {
    for (int count = 0;; ++count) {
        auto aside = NameOfDeletedFolder(ParentOf(folder), count);
        std::error_code fault;
        fs::rename(folder, aside, fault);
        if (!fault) return aside;
        const bool isTaken = fault == std::errc::directory_not_empty || fault == std::errc::file_exists;
        if (!isTaken) return folder;
    }
}

}  // namespace

std::string NativePath(std::string_view path) {
    CheckParts(path);
    std::string native(path);
    std::ranges::replace(native, '\\', '/');
    return native;
}

bool FileExists(std::string_view path) {
    const auto type = TypeAt(NativePath(path));
    return type != fs::file_type::not_found && type != fs::file_type::directory;
}

bool FolderExists(std::string_view path) { return TypeAt(NativePath(path)) == fs::file_type::directory; }

void CreateFolder(std::string_view path) {
    const auto native = NativePath(path);
    std::error_code fault;
    fs::create_directory(native, fault);
    if (fault) ThrowWriteError("folder", native, "made", fault.value());
    RemoveLeftBehind(ParentOf(native));
}

void CopyFile(std::string_view from, std::string_view to) { ReplaceFile(to, ReadFile(from)); }

void DeleteFolder(std::string_view path) {
    const auto native = NativePath(path);
    const auto type = TypeAt(native);
    RemoveLeftBehind(ParentOf(native));
    if (type == fs::file_type::not_found) return;
    if (type != fs::file_type::directory) ThrowWriteError("folder", native, "deleted", ENOTDIR);
    std::error_code fault;
    fs::remove_all(SetAside(native), fault);
    if (fault) ThrowWriteError("folder", native, "deleted", fault.value());
}

void RemoveFile(std::string_view path) {
    const auto native = NativePath(path);
    std::error_code fault;
    fs::remove(native, fault);
    if (fault) ThrowWriteError("file", native, "deleted", fault.value());
}

PathParts SplitPath(std::string_view path) {
    CheckParts(path);
    PathParts parts;
    const auto end = path.find_last_of(separators);
    const auto name = end == std::string_view::npos ? path : path.substr(end + 1);
    if (end != std::string_view::npos) parts.folder = path.substr(0, end);
    const auto dot = name.rfind('.');
    const auto baseLength = dot == 0 ? std::string_view::npos : dot;
    parts.baseName = name.substr(0, baseLength);
    parts.extension = name.substr(parts.baseName.size());
    return parts;
}

std::string ReadFile(std::string_view path) {
    const auto native = NativePath(path);
    const Descriptor file(open(native.c_str(), O_RDONLY | O_CLOEXEC));
    std::string content;
    if (!file.IsOpen() || !file.ReadAll(content)) ThrowReadError("file", native, "read", errno);
    return content;
}

}  // namespace tessel::files
