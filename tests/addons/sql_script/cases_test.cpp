#include "script_test.h"

namespace tessel::test {
namespace {

class Cases : public ScriptTest, public testing::WithParamInterface<std::string> {};

TEST_P(Cases, GiveTheExpectedScripts) {
    const auto source = std::filesystem::path(TESSEL_TEST_DATA) / "cases" / GetParam();
    MakeRows(source / "rows.sql");
    for (const char* dialect : {"postgresql", "mysql", "sqlite"}) {
        const std::string script = Script(dialect);
        EXPECT_EQ(script, Content(source / (std::string(dialect) + ".sql"))) << dialect;
        EXPECT_EQ(script, Script(dialect)) << "the same schema gives the same script";
    }
}

INSTANTIATE_TEST_SUITE_P(Script, Cases,
                         testing::ValuesIn(CaseNames(std::filesystem::path(TESSEL_TEST_DATA) / "cases")));

}  // namespace
}  // namespace tessel::test
