#include "runner/trusted_path.h"

#include <fmt/format.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <deque>
#include <filesystem>
#include <utility>

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

// Goes down a path part by part, through its links.
class Walk {
  public:
    explicit Walk(const fs::path& path) { Go(path); }

    // Whether there is a further part.
    bool Next() {
        if (parts_.empty()) return false;
        const fs::path part = std::exchange(parts_.front(), {});
        parts_.pop_front();
        std::error_code fault;
        if (const auto target = fs::read_symlink(at_ / part, fault); !fault && ++links_ <= mostLinks)
            Go(target);
        else
            at_ = part == ".." ? at_.parent_path() : at_ / part;
        return true;
    }

    [[nodiscard]] const fs::path& At() const { return at_; }

  private:
    void Go(const fs::path& path) {
        if (path.is_absolute()) at_ = "/";
        const auto relative = path.relative_path();
        std::deque<fs::path> parts(relative.begin(), relative.end());
        std::erase_if(parts, [](const auto& part) { return part.empty() || part == "."; });
        parts_.insert(parts_.begin(), parts.begin(), parts.end());
    }

    static constexpr int mostLinks = 40;

    fs::path at_ = "/";  // no link
    std::deque<fs::path> parts_;
    int links_ = 0;
};

}  // namespace

std::string WhyNotTrusted(const std::string& path) {
    // Where a link stands counts as much as where it leads.
    Walk walk(path);
    do
        if (auto why = WhyOpen(walk.At()); !why.empty()) return why;
    while (walk.Next());
    return WhyForeign(walk.At());
}

void RefuseUntrusted(const std::string& path) {
    if (const auto why = WhyNotTrusted(path); !why.empty()) throw Error(ErrorKind::Component, why);
}

}  // namespace tessel
