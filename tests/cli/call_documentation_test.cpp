#include <fstream>
#include <set>
#include <sstream>

#include "cli/json_values.h"
#include "cli/serve_calls.h"
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
    std::set<std::string> members;
    for (std::size_t i = 0; i < lines.size(); i += 2) {
        std::istringstream input(lines[i]);
        std::ostringstream output;
        ServeCalls(Ws(), answering, input, output);
        EXPECT_EQ(output.str(), lines[i + 1] + "\n") << lines[i];
        const Json call = Json::parse(lines[i]);
        if (!call.contains("on") && Json::parse(output.str()).contains("result"))
            members.insert(call["member"]);
    }
    EXPECT_EQ(members.size(), 43U);  // all that the workspace has
}

}  // namespace

}  // namespace tessel::test
