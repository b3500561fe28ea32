#pragma once

#include <fmt/format.h>
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

// What every measurement of growing schemas shares.
namespace tessel::bench {

// A fresh folder, gone with its contents at the end.
class Folder {
  public:
    explicit Folder(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
        path_ = (parent / "bench-XXXXXX").string();
        if (!mkdtemp(path_.data()))
            throw std::runtime_error("No folder can be made below " + parent.string());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string path_;
};

// The most memory that this process has held so far, in megabytes.
inline double PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

// How much longer each size took than the one before it.
inline void PrintGrowth(const std::vector<int>& sizes, const std::vector<double>& times) {
    for (std::size_t i = 1; i < sizes.size(); ++i)
        fmt::print("from {} to {} tables: {:.1f} times the time\n", sizes[i - 1], sizes[i],
                   times[i] / times[i - 1]);
}

// Runs `report` for the sizes on the command line, or else for 100, 1,000 and 10,000 tables; the exit code.
inline int Run(int argc, char** argv, void (&report)(const std::vector<int>& sizes)) {
    try {
        std::vector<int> sizes;
        for (int i = 1; i < argc; ++i) sizes.push_back(std::stoi(argv[i]));
        report(sizes.empty() ? std::vector{100, 1000, 10000} : sizes);
        return 0;
    } catch (const std::exception& error) {
        fmt::print(stderr, "{}: {}\n", argv[0], error.what());
        return 1;
    }
}

}  // namespace tessel::bench
