#include "layout_test.h"

namespace tessel::test {

namespace {

namespace fs = std::filesystem;
const fs::path cases = TESSEL_TEST_DATA "/cases";

// Each case is a copybook, layout.cpy, with what it copies, param.txt, and what comes of it: report.txt, the
// result with what was not used, and columns.txt.
class LayoutCases : public LayoutTest, public testing::WithParamInterface<std::string> {
  protected:
    void Compare(const std::string& file, const std::vector<std::string>& lines) {
        EXPECT_EQ(lines, LinesOf(cases / GetParam() / file));
        std::string written;
        for (const auto& line : lines) written += line + "\n";
        if (HasFailure()) Write(fs::path(testing::TempDir()) / (GetParam() + "." + file), written);
    }
};

TEST_P(LayoutCases, MakeColumns) {
    fs::copy(cases / GetParam(), folder / "layouts");
    const std::string result =
        Run("preview=no;file=" + folder / "layouts/layout.cpy;" + Content(cases / GetParam() / "param.txt"));
    Write(folder / "result.txt", result);
    Compare("report.txt", LinesOf(folder / "result.txt"));
    Compare("columns.txt", ColumnsOf(Ws().SelectedTabID()));

    const std::size_t firstLine = result.find('\n');
    const bool isAllUsed = firstLine == std::string::npos;
    EXPECT_EQ(Content(folder / "schema.errors"), isAllUsed ? "" : result.substr(firstLine + 1) + "\n");
}

INSTANTIATE_TEST_SUITE_P(Copybooks, LayoutCases, testing::ValuesIn(CaseNames(cases)),
                         [](const auto& test) { return test.param; });

}  // namespace

}  // namespace tessel::test
