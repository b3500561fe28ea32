#pragma once

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <system_error>

namespace tessel {

// Makes an empty folder whose name begins with `name`: in TMPDIR or, without that, in memory where the system
// has plenty, so that no test waits for a disk.
inline std::string MakeTemporaryFolder(const std::string& name) {
    namespace fs = std::filesystem;
    const fs::path memory = "/dev/shm";
    const bool hasMemory = !std::getenv("TMPDIR") && fs::is_directory(memory) &&
                           fs::space(memory).available > std::uintmax_t{512} << 20;
    std::string pattern = (hasMemory ? memory : fs::temp_directory_path()) / (name + "-XXXXXX");
    if (!mkdtemp(pattern.data())) throw std::system_error(errno, std::generic_category(), pattern);
    return fs::canonical(pattern);
}

// A fresh folder, gone with its contents at the end.
class TemporaryFolder {
  public:
    TemporaryFolder() : path_(MakeTemporaryFolder("tessel-test")) {}
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return path_ + "/" + name; }

    // The names of what is in it.
    [[nodiscard]] std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.insert(entry.path().filename());
        return names;
    }

  private:
    std::string path_;
};

inline std::string Content(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void Write(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

}  // namespace tessel
