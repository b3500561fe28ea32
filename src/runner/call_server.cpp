#include "runner/call_server.h"

#include "runner/call_line.h"
#include "tessel/error.h"

namespace tessel {

namespace {

constexpr const char* hostName = "Frontend";

Json ErrorJson(const Error& error) { return {{"message", error.what()}, {"kind", KindName(error.Kind())}}; }

}  // namespace

Json CallServer::ArgumentsJson(Arguments arguments) {
    while (!arguments.empty() && arguments.back().IsMissing()) arguments.pop_back();
    Json json = Json::array();
    for (const auto& argument : arguments) json.push_back(ToJson(argument, handles_));
    return json;
}

std::shared_ptr<Object> CallServer::ObjectOn(const Json& on) {
    if (on.is_null()) return WorkspaceOf(state_);
    if (on.is_number()) return handles_.At(on);
    if (on == hostName && state_.frontend) return state_.frontend;
    Arguments none;
    const Value value = WorkspaceOf(state_)->Call(on.get<std::string>(), CallKind::Get, none);
    const auto* object = value.As<std::shared_ptr<Object>>();
    if (!object || !*object) throw Error(ErrorKind::Member, on.get<std::string>() + ": it is no object.");
    return *object;
}

void CallServer::Call(const Json& line, Json& answer) {
    CallLine call = ReadCall(line, handles_);
    questions_.ForgetAnswers();
    if (call.answers) questions_.SetAnswers(*std::move(call.answers));
    state_.failure.clear();
    const Value result = ObjectOn(call.on)->Call(call.member, call.kind, call.arguments);
    answer["result"] = ToJson(result, handles_);
    if (result == Value(false) && !state_.failure.empty()) answer["reason"] = state_.failure;
    answer["args"] = ArgumentsJson(call.kind == CallKind::Put ? Arguments{} : std::move(call.arguments));
}

template <typename Act>
Json CallServer::Answered(Act&& act) {
    Json answer = Json::object();
    try {
        act(answer);
    } catch (const Error& error) {
        answer["error"] = ErrorJson(error);
    } catch (const std::exception& error) {
        answer["error"] = ErrorJson(Error(ErrorKind::Host, error.what()));
    }
    Json messages = Json::array();
    for (const auto& question : questions_.TakeAsked()) messages.push_back(AskedJson(question));
    if (!messages.empty() || !answer.contains("error")) answer["messages"] = std::move(messages);
    return answer;
}

Json CallServer::Answer(const Json& line) {
    return Answered([&](Json& answer) {
        if (line.is_object() && line.contains("id")) answer["id"] = line["id"];
        Call(line, answer);
    });
}

Json CallServer::Answer(std::string_view text) {
    try {
        return Answer(ParseLine(text));
    } catch (const Error& error) {
        return {{"error", ErrorJson(error)}};
    }
}

}  // namespace tessel
