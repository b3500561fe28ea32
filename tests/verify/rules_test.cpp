#include "support/schema_cases.h"
#include "verify/db_check.h"

namespace tessel::test {

namespace {

const std::filesystem::path cases = TESSEL_TEST_DATA "/cases";

class RuleCases : public SchemaCase, public testing::WithParamInterface<std::string> {};

// Each case is a schema and expected.txt, what is found in it, a line each: the three numbers, the table's
// name and the message.
TEST_P(RuleCases, Find) {
    MakeSchema(cases / GetParam());
    DBCheck(state).VerifySchema(true);
    std::vector<std::string> findings;
    for (const auto& error : window->errors)
        findings.push_back(std::to_string(error.tblID) + " " + std::to_string(error.keyID) + " " +
                           std::to_string(error.columnID) + " " + error.tableName + ": " + error.message);
    EXPECT_EQ(findings, LinesOf(cases / GetParam() / "expected.txt"));
}

INSTANTIATE_TEST_SUITE_P(Verification, RuleCases, testing::ValuesIn(CaseNames(cases)),
                         [](const auto& test) { return test.param; });

}  // namespace

}  // namespace tessel::test
