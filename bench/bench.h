#pragma once

#include <fmt/format.h>
#include <sys/resource.h>

#include <algorithm>
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

// The processor time of this process and of the programs that it has waited for, in seconds: what else the
// machine does stays out of it.
inline double ProcessorSeconds() {
    double seconds = 0;
    for (const auto whose : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        getrusage(whose, &usage);
        for (const auto& time : {usage.ru_utime, usage.ru_stime})
            seconds += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    }
    return seconds;
}

template <typename Action>
double Seconds(Action&& action) {
    const double start = ProcessorSeconds();
    action();
    return ProcessorSeconds() - start;
}

inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// What is measured, and what it is measured against.
struct Pair {
    double own = 0;
    double bound = 0;
};

// The medians of several rounds; both sides in turn, so that a machine that slows down slows both.
template <typename Own, typename Bound>
Pair Compare(int rounds, Own&& own, Bound&& bound) {
    std::vector<double> ours;
    std::vector<double> bounds;
    for (int i = 0; i < rounds; ++i) {
        ours.push_back(own());
        bounds.push_back(bound());
    }
    return {Median(ours), Median(bounds)};
}

// A line for the table that bench/run makes: parted by tabs, without a ratio where there is no bound.
inline void PrintFigure(const std::string& figure, int tables, Pair pair, const std::string& unit,
                        const std::string& against) {
    fmt::print("{}\t{}\t{:.6g}\t{:.6g}\t{}\t{}\n", figure, tables, pair.own, pair.bound, unit, against);
    std::fflush(stdout);
}

inline void PrintMilliseconds(const std::string& figure, int tables, Pair seconds,
                              const std::string& against) {
    PrintFigure(figure, tables, {seconds.own * 1000, seconds.bound * 1000}, "ms", against);
}

// How many rounds a size is worth.
inline int RoundsFor(int tables) { return tables > 10000 ? 3 : 5; }

// Calls `measure` for the sizes on the command line, or else for 100, 1,000 and 10,000; the exit code.
inline int Run(int argc, char** argv, void (&measure)(int size)) {
    try {
        std::vector<int> sizes;
        for (int i = 1; i < argc; ++i) sizes.push_back(std::stoi(argv[i]));
        if (sizes.empty()) sizes = {100, 1000, 10000};
        for (const int size : sizes) measure(size);
        return 0;
    } catch (const std::exception& error) {
        fmt::print(stderr, "{}: {}\n", argv[0], error.what());
        return 1;
    }
}

}  // namespace tessel::bench
