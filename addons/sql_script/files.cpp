#include "sql_script/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace tessel::sql_script {

namespace {

template <typename Failure>
[[noreturn]] void Fail(Language language, Text text, const std::string& path, int code) {
    throw Failure(ErrorKind::File, Say(language, text, {path, std::generic_category().message(code)}));
}

// A file that is gone at the end unless it was put in its place.
class NewFile {
  public:
    explicit NewFile(std::string path)
        : path_(std::move(path)),
          file_(open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {}
    ~NewFile() {
        if (file_ < 0) return;
        close(file_);
        unlink(path_.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // False when that fails, with errno saying why.
    bool Write(std::string_view content) {
        while (file_ >= 0 && !content.empty()) {
            const ssize_t written = write(file_, content.data(), content.size());
            if (written < 0 && errno != EINTR) return false;
            content.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        }
        return file_ >= 0 && fsync(file_) == 0;
    }
    bool PutInPlaceOf(const std::string& path) { return rename(path_.c_str(), path.c_str()) == 0; }

  private:
    std::string path_;
    int file_;
};

// Why nothing may take the place of what is there; 0 when something may.
int WhyKept(const std::string& target) {
    struct stat status {};
    if (stat(target.c_str(), &status) != 0) return 0;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (!S_ISREG(status.st_mode)) return EINVAL;
    return access(target.c_str(), W_OK) == 0 ? 0 : errno;
}

bool SyncFolder(const std::filesystem::path& folder) {
    const int opened = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool isDone = opened >= 0 && fsync(opened) == 0;
    if (opened >= 0) close(opened);
    return isDone;
}

}  // namespace

std::string ReadFile(const std::string& path, Language language) {
    std::ifstream stream(path, std::ios::binary);
    std::string content(std::istreambuf_iterator<char>(stream), {});
    if (!stream) Fail<Error>(language, Text::CannotRead, path, errno);
    return content;
}

void ReplaceFile(const std::string& path, std::string_view content, Language language) {
    std::error_code ignored;
    // A link stays one: the file that it leads to is replaced.
    const auto place = std::filesystem::weakly_canonical(path, ignored);
    const std::string target = place.empty() ? path : place.string();
    const auto folder = std::filesystem::path(target).parent_path();
    std::filesystem::create_directory(folder, ignored);
    if (const int cause = WhyKept(target)) Fail<WriteError>(language, Text::CannotWrite, path, cause);
    NewFile file(target + ".new-" + std::to_string(getpid()));
    if (!file.Write(content) || !file.PutInPlaceOf(target) || !SyncFolder(folder))
        Fail<WriteError>(language, Text::CannotWrite, path, errno);
}

}  // namespace tessel::sql_script
