#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "support/temporary_folder.h"

namespace tessel::fuzz {

namespace fs = std::filesystem;

using Target = int (*)(const std::uint8_t* data, std::size_t size);

#define TARGET(name) extern "C" int fuzz_##name(const std::uint8_t* data, std::size_t size);
TESSEL_FUZZ_TARGETS
#undef TARGET

#define TARGET(name) {#name, fuzz_##name},
const std::pair<std::string, Target> targets[] = {TESSEL_FUZZ_TARGETS};
#undef TARGET

struct Case {
    std::string target;
    Target run;
    fs::path input;
};

void PrintTo(const Case& test, std::ostream* out) { *out << test.target << " of " << test.input.filename(); }

// The empty input and every kept one.
std::vector<Case> AllCases() {
    std::vector<Case> cases;
    for (const auto& [target, run] : targets) {
        cases.push_back({target, run, {}});
        for (const char* kept : {"corpus", "regressions"}) {
            const fs::path folder = fs::path(TESSEL_FUZZ_FOLDER) / kept / target;
            if (!fs::exists(folder)) continue;
            for (const auto& entry : fs::directory_iterator(folder))
                cases.push_back({target, run, entry.path()});
        }
    }
    std::ranges::sort(cases, {}, [](const Case& test) { return std::pair(test.target, test.input); });
    return cases;
}

std::string NameOf(const testing::TestParamInfo<Case>& info) {
    std::string name = info.param.target + "_" + info.param.input.filename().string();
    std::ranges::replace_if(
        name, [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

class Replay : public testing::TestWithParam<Case> {};

TEST_P(Replay, IsSurvived) {
    const std::string input = GetParam().input.empty() ? std::string() : Content(GetParam().input);
    EXPECT_NO_THROW(GetParam().run(reinterpret_cast<const std::uint8_t*>(input.data()), input.size()));
}

INSTANTIATE_TEST_SUITE_P(Inputs, Replay, testing::ValuesIn(AllCases()), NameOf);

}  // namespace tessel::fuzz
