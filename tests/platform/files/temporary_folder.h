#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace tessel {

// A fresh folder, removed in the end.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = testing::TempDir() + "tesselXXXXXX";
        path_ = std::filesystem::canonical(mkdtemp(pattern.data()));
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string At(const std::string& name) const { return path_ + "/" + name; }
    [[nodiscard]] const std::string& Path() const { return path_; }

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
