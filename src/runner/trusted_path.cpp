#include "runner/trusted_path.h"

#include <fmt/format.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "tessel/error.h"

namespace tessel {

namespace {

namespace fs = std::filesystem;

constexpr uid_t rootUser = 0;
constexpr gid_t rootGroup = 0;

gid_t OwnGroup() {
    const passwd* user = getpwuid(geteuid());
    return user ? user->pw_gid : getegid();
}

bool IsOpenToGroup(const struct stat& status) {
    return (status.st_mode & S_IWGRP) != 0 && status.st_gid != rootGroup && status.st_gid != OwnGroup();
}

bool IsOpenToAll(const struct stat& status) {
    const bool isSticky = S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0;
    return (status.st_mode & S_IWOTH) != 0 && !isSticky;
}

std::string WhyOpen(const fs::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return fmt::format("{} cannot be examined: {}.", path.string(), std::strerror(errno));
    const char* others = IsOpenToAll(status) ? "o" : IsOpenToGroup(status) ? "g" : nullptr;
    if (!others) return {};
    return fmt::format("Others may write to {}, so it is not safe to use what is there; run: chmod {}-w '{}'",
                       path.string(), others, path.string());
}

std::string WhyForeign(const fs::path& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0 || status.st_uid == rootUser || status.st_uid == geteuid())
        return {};
    return fmt::format(
        "The file {} belongs to another user, so it is not safe to use; make a copy of it your own, or "
        "change its owner.",
        file.string());
}

// Of the file and each folder above it.
std::string WhyOpenAlong(fs::path path) {
    for (; path.has_relative_path(); path = path.parent_path())
        if (auto why = WhyOpen(path); !why.empty()) return why;
    return WhyOpen(path);
}

}  // namespace

std::string WhyNotTrusted(const std::string& path) {
    // Where a link stands counts as much as where it leads.
    if (auto why = WhyOpenAlong(fs::path(path).parent_path()); !why.empty()) return why;
    std::error_code fault;
    const auto target = fs::canonical(path, fault);
    if (fault) return fmt::format("{} cannot be examined: {}.", path, fault.message());
    if (auto why = WhyOpenAlong(target); !why.empty()) return why;
    return WhyForeign(target);
}

void RefuseUntrusted(const std::string& path) {
    if (const auto why = WhyNotTrusted(path); !why.empty()) throw Error(ErrorKind::Component, why);
}

}  // namespace tessel
