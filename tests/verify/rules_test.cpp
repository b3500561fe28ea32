#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/json_values.h"
#include "cli/serve_calls.h"
#include "support/schema_test.h"
#include "verify/db_check.h"

namespace tessel::test {

namespace {

const std::filesystem::path cases = TESSEL_TEST_DATA "/cases";

std::vector<std::string> LinesOf(const std::filesystem::path& file) {
    std::vector<std::string> lines;
    std::ifstream stream(file);
    EXPECT_TRUE(stream) << file;
    for (std::string line; std::getline(stream, line);)
        if (!line.starts_with("--")) lines.push_back(line);
    return lines;
}

// Each case is a folder: calls.jsonl and rows.sql make a schema, and expected.txt is what is found in it, a
// line each: the three numbers, the table's name and the message.
class RuleCases : public SchemaTest, public testing::WithParamInterface<std::string> {
  protected:
    void MakeSchema() {
        for (const auto& line : LinesOf(cases / GetParam() / "calls.jsonl")) {
            std::istringstream call(line);
            std::ostringstream answer;
            ServeCalls(Ws(), *questions, call, answer);
            const Json result = Json::parse(answer.str())["result"];
            ASSERT_TRUE(!result.is_null() && result != false) << line << answer.str();
        }
        for (const auto& line : LinesOf(cases / GetParam() / "rows.sql"))
            ASSERT_EQ(Db().Execute(line), 1) << line;
    }
    std::vector<std::string> Findings() {
        std::vector<std::string> findings;
        for (const auto& error : window->errors)
            findings.push_back(std::to_string(error.tblID) + " " + std::to_string(error.keyID) + " " +
                               std::to_string(error.columnID) + " " + error.tableName + ": " + error.message);
        return findings;
    }
};

TEST_P(RuleCases, Find) {
    MakeSchema();
    DBCheck(state).VerifySchema(true);
    EXPECT_EQ(Findings(), LinesOf(cases / GetParam() / "expected.txt"));
    EXPECT_TRUE(IsMarked());
}

std::vector<std::string> CaseNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(cases))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Verification, RuleCases, testing::ValuesIn(CaseNames()),
                         [](const auto& test) { return test.param; });

}  // namespace

}  // namespace tessel::test
