// Every line that is given to a project in place of a call is answered with one line, and the next one is
// read. Nothing that the calls do is kept from one input to the next.

#include <sstream>

#include "fuzz/project.h"
#include "fuzz/raw_database.h"
#include "runner/serve_calls.h"

namespace tessel::fuzz {
namespace {

constexpr int mostLines = 12;

struct Lines {
    std::string text;
    std::size_t count = 0;  // of those that are not blank
};

Lines TakeLines(Input& input) {
    Lines lines;
    for (int i = 0; i < mostLines && !input.IsEmpty(); ++i) {
        const std::string line = input.Line();
        lines.text += line + "\n";
        lines.count += line.find_first_not_of(" \t\r") == std::string::npos ? 0 : 1;
    }
    return lines;
}

std::size_t CountAnswers(const std::string& output) {
    std::size_t count = 0;
    std::istringstream answers(output);
    for (std::string answer; std::getline(answers, answer); ++count) {
        const Json json = ParseLine(answer);
        Require(json.contains("result") != json.contains("error"),
                "A line is neither result nor error: " + answer);
    }
    return count;
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel;
    using namespace tessel::fuzz;
    static Project project;
    RenewEngineBudget();
    Input input(data, size);
    const Lines lines = TakeLines(input);
    std::istringstream calls(lines.text);
    std::ostringstream answers;
    const db::Transaction undone(project.state.Database());
    ServeCalls(CallServer(project.state, *project.questions), calls, answers);
    Require(CountAnswers(answers.str()) == lines.count, "A line has no answer, or too many.");
    return 0;
}
