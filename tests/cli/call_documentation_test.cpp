#include <fstream>
#include <set>

#include "lines/json_values.h"
#include "runner/call_server.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

class CallDocumentation : public SchemaTest {};

// The lines of the page's JSON examples: calls, each followed by its answer.
std::vector<std::string> ExampleLines() {
    std::ifstream page(std::string(TESSEL_DOCS) + "/call.md");
    std::vector<std::string> lines;
    bool inside = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("```"))
            inside = line == "```json";
        else if (inside)
            lines.push_back(line);
    }
    return lines;
}

TEST_F(CallDocumentation, SaysWhatEveryMemberAnswers) {
    state.databaseFilename = "/home/you/works\\Projects\\Library\\DBSCHEMA\\Library.mdb";
    state.schemaObject = std::make_shared<FakeObject>("O2", "DBSCHEMA");
    state.verifySchema = [](ComponentState&) {};
    const auto lines = ExampleLines();
    ASSERT_EQ(lines.size() % 2, 0U);
    QueuedQuestions answering;
    state.questions = {std::shared_ptr<void>(), &answering};
    CallServer server(state, answering);
    std::set<std::string> members;
    for (std::size_t i = 0; i < lines.size(); i += 2) {
        const Json answer = server.Answer(std::string_view(lines[i]));
        EXPECT_EQ(LineOf(answer), lines[i + 1]) << lines[i];
        const Json call = Json::parse(lines[i]);
        if (!call.contains("on") && answer.contains("result")) members.insert(call["member"]);
    }
    EXPECT_EQ(members.size(), 43U);  // all that the workspace has
}

}  // namespace

}  // namespace tessel::test
