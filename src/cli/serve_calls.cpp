#include "cli/serve_calls.h"

#include "cli/call_line.h"
#include "tessel/error.h"

namespace tessel {

namespace {

Json ErrorJson(ErrorKind kind, const std::string& message) {
    return {{"message", message}, {"kind", KindName(kind)}};
}

Json ArgumentsJson(Arguments arguments) {
    while (!arguments.empty() && arguments.back().IsMissing()) arguments.pop_back();
    Json json = Json::array();
    for (const auto& argument : arguments) json.push_back(ToJson(argument));
    return json;
}

Json ParseLine(const std::string& text) {
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {
        throw Error(ErrorKind::JsonLine, std::string("The line is no JSON: ") + error.what());
    }
}

// Adds the outcome of the call in `text` to `answer`.
void Answer(VNTWS& workspace, QueuedQuestions& questions, const std::string& text, Json& answer) {
    const Json line = ParseLine(text);
    if (line.is_object() && line.contains("id")) answer["id"] = line["id"];
    CallLine call = ReadCall(line);
    questions.SetAnswers(std::move(call.answers));
    const Value result = workspace.Call(call.member, call.kind, call.arguments);
    answer["result"] = ToJson(result);
    answer["args"] = ArgumentsJson(call.kind == CallKind::Put ? Arguments{} : std::move(call.arguments));
}

Json AnswerLine(VNTWS& workspace, QueuedQuestions& questions, const std::string& text) {
    Json answer = Json::object();
    try {
        Answer(workspace, questions, text, answer);
    } catch (const Error& error) {
        answer["error"] = ErrorJson(error.Kind(), error.what());
    }
    Json messages = Json::array();
    for (const auto& question : questions.TakeAsked()) messages.push_back(AskedJson(question));
    if (!messages.empty() || !answer.contains("error")) answer["messages"] = std::move(messages);
    return answer;
}

}  // namespace

void ServeCalls(VNTWS& workspace, QueuedQuestions& questions, std::istream& input, std::ostream& output) {
    for (std::string text; output && std::getline(input, text);) {
        if (text.find_first_not_of(" \t\r") == std::string::npos) continue;
        const Json answer = AnswerLine(workspace, questions, text);
        output << answer.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
    }
}

}  // namespace tessel
