#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "platform/files/descriptor.h"
#include "platform/files/file_error.h"
#include "platform/files/file_service.h"
#include "platform/files/left_behind.h"

namespace tessel::files {
namespace fs = std::filesystem;
namespace {

[[noreturn]] void Fail(const fs::path& target, int cause) {
    ThrowWriteError("file", target.string(), "written", cause);
}

// Where a link leads, also when nothing is there yet.
fs::path FollowLinks(fs::path path) {
    constexpr int mostLinks = 40;
    for (int count = 0; count < mostLinks; ++count) {
        std::error_code fault;
        const auto target = fs::read_symlink(path, fault);
        if (fault) return path;
        path = path.parent_path() / target;
    }
    Fail(path, ELOOP);
}

// The file that stands at the target; nothing when there is none. One that may not be replaced throws.
std::optional<struct stat> Earlier(const fs::path& target) {
    struct stat status {};
    if (stat(target.c_str(), &status) != 0) {
        if (errno == ENOENT) return std::nullopt;
        Fail(target, errno);
    }
    if (!S_ISREG(status.st_mode)) Fail(target, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    if (access(target.c_str(), W_OK) != 0) Fail(target, errno);
    return status;
}

fs::path FolderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path() : fs::path(".");
}

// The new content beside the target, gone in the end unless it took the target's place.
class TemporaryFile {
  public:
    explicit TemporaryFile(const fs::path& target) : target_(target), file_(Make()) {}
    ~TemporaryFile() {
        if (!path_.empty()) unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void TakeRightsOf(const struct stat& earlier) {
        // Another user's file stays that user's where the system lets us; the rights below always hold.
        [[maybe_unused]] const auto given = fchown(file_.Number(), earlier.st_uid, earlier.st_gid);
        if (fchmod(file_.Number(), earlier.st_mode & 07777) != 0) Fail(target_, errno);
    }

    void Write(std::string_view content) {
        if (!file_.WriteAll(content) || fsync(file_.Number()) != 0 || !file_.Close()) Fail(target_, errno);
    }

    void TakePlace() {
        if (rename(path_.c_str(), target_.c_str()) != 0) Fail(target_, errno);
        path_.clear();
    }

    // False when something is at the target already.
    [[nodiscard]] bool TakeFreePlace() {
        if (renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0) {
            path_.clear();
            return true;
        }
        // Network file systems know no such renaming, but links.
        if (errno == EINVAL && link(path_.c_str(), target_.c_str()) == 0) return true;
        if (errno != EEXIST) Fail(target_, errno);
        return false;
    }

  private:
    // A name of its own is tried anew until it is free: a killed process may have left one behind.
    Descriptor Make() {
        RemoveLeftBehind(target_.parent_path());
        for (int count = 0;; ++count) {
            const auto path = NameOfNewFile(target_.parent_path(), count);
            Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
            if (!file.IsOpen() && errno == EEXIST) continue;
            if (!file.IsOpen()) Fail(target_, errno);
            path_ = path;
            return file;
        }
    }

    fs::path target_;
    fs::path path_;
    Descriptor file_;
};

// Makes the renaming last where it can: some file systems know no such thing and say EINVAL, and a folder
// may be one to write into but not to read.
void SyncFolder(const fs::path& target) {
    const Descriptor opened(open(FolderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen() && errno == EACCES) return;
    if (!opened.IsOpen() || (fsync(opened.Number()) != 0 && errno != EINVAL)) Fail(target, errno);
}

}  // namespace

struct Replacement::Parts {
    explicit Parts(fs::path path) : target(std::move(path)), earlier(Earlier(target)), file(target) {}
    fs::path target;
    std::optional<struct stat> earlier;
    TemporaryFile file;
};

Replacement::Replacement(std::string_view path, std::string_view content)
    : parts_(std::make_unique<Parts>(FollowLinks(NativePath(path)))) {
    if (parts_->earlier) parts_->file.TakeRightsOf(*parts_->earlier);
    parts_->file.Write(content);
}

Replacement::~Replacement() = default;

void Replacement::TakePlace() {
    parts_->file.TakePlace();
    SyncFolder(parts_->target);
}

void ReplaceFile(std::string_view path, std::string_view content) { Replacement(path, content).TakePlace(); }

bool PlaceNewFile(std::string_view from, std::string_view to) {
    const auto target = FollowLinks(NativePath(to));
    const auto content = ReadFile(from);
    TemporaryFile file(target);
    file.Write(content);
    if (!file.TakeFreePlace()) return false;
    SyncFolder(target);
    return true;
}

}  // namespace tessel::files
