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
    constexpr int deepest = 100;
    const auto checkDepth = [](int depth, Json::parse_event_t, const Json&) {
        if (depth > deepest) throw Error(ErrorKind::JsonLine, "The line is nested too deeply.");
        return true;
    };
    try {
        return Json::parse(text, checkDepth);
    } catch (const Json::exception& error) {
        throw Error(ErrorKind::JsonLine, std::string("The line is no JSON: ") + error.what());
    }
}

// The object that a call is made on: the workspace, or the one that its property `on` gives.
std::shared_ptr<Object> ObjectOn(VNTWS& workspace, const std::string& on) {
    Arguments none;
    const Value value = workspace.Call(on, CallKind::Get, none);
    const auto* object = value.As<std::shared_ptr<Object>>();
    if (!object || !*object) throw Error(ErrorKind::Member, on + ": it is no object.");
    return *object;
}

Value Invoke(VNTWS& workspace, CallLine& call) {
    if (call.on.empty()) return workspace.Call(call.member, call.kind, call.arguments);
    return ObjectOn(workspace, call.on)->Call(call.member, call.kind, call.arguments);
}

// Adds the outcome of the call in `text` to `answer`.
void Answer(VNTWS& workspace, QueuedQuestions& questions, const std::string& text, Json& answer) {
    const Json line = ParseLine(text);
    if (line.is_object() && line.contains("id")) answer["id"] = line["id"];
    CallLine call = ReadCall(line);
    questions.SetAnswers(std::move(call.answers));
    const Value result = Invoke(workspace, call);
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
    if (!output) throw Error(ErrorKind::File, "The answers cannot be written; no more calls were made.");
    if (input.bad()) throw Error(ErrorKind::File, "The calls cannot be read to their end.");
}

}  // namespace tessel
