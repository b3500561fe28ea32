#include "shared/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>

namespace tessel::tool {

namespace fs = std::filesystem;

namespace {

std::error_code Failure(int code) { return {code, std::generic_category()}; }

// Why this can be no file's content; 0 for a file.
int WhyNoFile(const struct stat& status) {
    if (S_ISDIR(status.st_mode)) return EISDIR;
    return S_ISREG(status.st_mode) ? 0 : EINVAL;
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int Number() const { return number_; }

  private:
    int number_;
};

// A file that is gone at the end unless it was put in its place. What fails is false, errno saying why.
class NewFile {
  public:
    explicit NewFile(const fs::path& folder) : file_(Make(folder)) {}
    ~NewFile() {
        if (!path_.empty()) unlink(path_.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    [[nodiscard]] bool IsOpen() const { return file_.Number() >= 0; }
    [[nodiscard]] bool TakeRightsOf(const struct stat& earlier) const {
        // Another user's file stays that user's where the system lets us; the rights below always hold.
        [[maybe_unused]] const auto given = fchown(file_.Number(), earlier.st_uid, earlier.st_gid);
        return fchmod(file_.Number(), earlier.st_mode & 07777) == 0;
    }
    [[nodiscard]] bool Write(std::string_view content) const {
        while (!content.empty()) {
            const ssize_t written = write(file_.Number(), content.data(), content.size());
            if (written < 0 && errno != EINTR) return false;
            content.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        }
        return fsync(file_.Number()) == 0;
    }
    [[nodiscard]] bool PutInPlaceOf(const fs::path& target) {
        if (rename(path_.c_str(), target.c_str()) != 0) return false;
        path_.clear();
        return true;
    }

  private:
    // The editor gives its own new files such names, and clears away those of processes that are gone. One is
    // tried anew until it is free: a killed process may have left it behind.
    int Make(const fs::path& folder) {
        for (int count = 0;; ++count) {
            const auto path = folder / (".tessel-" + std::to_string(getpid()) + "-" + std::to_string(count));
            const int made = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (made < 0 && errno == EEXIST) continue;
            if (made >= 0) path_ = path;
            return made;
        }
    }

    fs::path path_;
    Descriptor file_;
};

// Where a link leads, also when nothing is there yet. Links in a circle end at one of them, which is no file.
fs::path FollowLinks(fs::path path) {
    constexpr int mostLinks = 40;
    std::error_code end;
    for (int count = 0; count < mostLinks; ++count) {
        const auto next = fs::read_symlink(path, end);
        if (end) break;
        path = path.parent_path() / next;
    }
    return path;
}

// Finds the file that would be replaced, if there is one; why it may not be, 0 when it may.
int FindEarlier(const fs::path& target, std::optional<struct stat>& earlier) {
    struct stat status {};
    if (stat(target.c_str(), &status) != 0) return errno == ENOENT ? 0 : errno;
    if (const int cause = WhyNoFile(status)) return cause;
    if (access(target.c_str(), W_OK) != 0) return errno;
    earlier = status;
    return 0;
}

// Makes the renaming last, where that can be done: a folder may be closed to reading, and some file systems
// know no such thing and say EINVAL.
bool SyncFolder(const fs::path& folder) {
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.Number() < 0) return errno == EACCES;
    return fsync(opened.Number()) == 0 || errno == EINVAL;
}

// Why that failed; 0 when it did not.
int Replace(const fs::path& target, const std::optional<struct stat>& earlier, std::string_view content) {
    NewFile file(target.parent_path());
    const bool isDone = file.IsOpen() && (!earlier || file.TakeRightsOf(*earlier)) && file.Write(content) &&
                        file.PutInPlaceOf(target) && SyncFolder(target.parent_path());
    return isDone ? 0 : errno;
}

}  // namespace

std::error_code ReadFile(const std::string& path, std::string& content, std::size_t most) {
    constexpr std::size_t atOnce = 65'536;
    struct stat status {};
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file.Number() < 0 || fstat(file.Number(), &status) != 0) return Failure(errno);
    if (const int cause = WhyNoFile(status)) return Failure(cause);
    content.clear();
    for (ssize_t taken = 1; taken > 0 && content.size() < most;) {
        const std::size_t before = content.size();
        content.resize(before + std::min(atOnce, most - before));
        taken = read(file.Number(), content.data() + before, content.size() - before);
        if (taken < 0) return Failure(errno);
        content.resize(before + static_cast<std::size_t>(taken));
    }
    return {};
}

std::error_code ReplaceFile(const std::string& path, std::string_view content) {
    std::error_code ignored;
    const auto target = FollowLinks(fs::absolute(path, ignored));
    fs::create_directory(target.parent_path(), ignored);
    std::optional<struct stat> earlier;
    const int cause = FindEarlier(target, earlier);
    return Failure(cause != 0 ? cause : Replace(target, earlier, content));
}

}  // namespace tessel::tool
