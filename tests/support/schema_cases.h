#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "lines/json_values.h"
#include "runner/serve_calls.h"
#include "support/schema_test.h"

namespace tessel::test {

// The file's lines but for those that begin with "--".
inline std::vector<std::string> LinesOf(const std::filesystem::path& file) {
    std::vector<std::string> lines;
    std::ifstream stream(file);
    EXPECT_TRUE(stream) << file;
    for (std::string line; std::getline(stream, line);)
        if (!line.starts_with("--")) lines.push_back(line);
    return lines;
}

// The names of the folders in `folder`, for testing::ValuesIn.
inline std::vector<std::string> CaseNames(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_directory()) names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

// A case is a folder whose files calls.jsonl and rows.sql make a schema: a call, or a statement, a line.
class SchemaCase : public SchemaTest {
  protected:
    void MakeSchema(const std::filesystem::path& source) {
        for (const auto& line : LinesOf(source / "calls.jsonl")) {
            std::istringstream call(line);
            std::ostringstream answer;
            ServeCalls({state, *questions}, call, answer);
            const Json result = Json::parse(answer.str())["result"];
            ASSERT_TRUE(!result.is_null() && result != false) << line << answer.str();
        }
        for (const auto& line : LinesOf(source / "rows.sql")) ASSERT_EQ(Db().Execute(line), 1) << line;
    }
};

}  // namespace tessel::test
