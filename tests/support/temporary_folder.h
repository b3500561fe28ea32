#pragma once

#include <filesystem>
#include <string>

namespace tessel::test {

// A fresh folder that is gone with its contents at the end.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tessel-test-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

}  // namespace tessel::test
