#include "cli/call_line.h"

#include <array>
#include <utility>

#include "tessel/error.h"

namespace tessel {

namespace {

using host::Answer;
using host::Buttons;
using host::Icon;

constexpr std::array<std::pair<Answer, const char*>, 4> answerNames{{
    {Answer::OK, "OK"},
    {Answer::Cancel, "Cancel"},
    {Answer::Yes, "Yes"},
    {Answer::No, "No"},
}};
constexpr std::array<std::pair<Icon, const char*>, 5> iconNames{{
    {Icon::None, "none"},
    {Icon::Critical, "critical"},
    {Icon::Exclamation, "exclamation"},
    {Icon::Warning, "warning"},
    {Icon::Information, "information"},
}};
constexpr std::array<std::pair<Buttons, const char*>, 3> buttonNames{{
    {Buttons::OK, "OK"},
    {Buttons::OKCancel, "OKCancel"},
    {Buttons::YesNo, "YesNo"},
}};

template <typename Names, typename Key>
const char* NameOf(const Names& names, Key key) {
    for (const auto& [value, name] : names)
        if (value == key) return name;
    return "";
}

[[noreturn]] void Refuse(const std::string& message) { throw Error(ErrorKind::JsonLine, message); }

QueuedAnswer ReadAnswer(const Json& json) {
    if (json.is_object() && json.size() == 1 && json.contains("text") && json["text"].is_string())
        return TypedText{json["text"].get<std::string>()};
    if (json.is_string())
        for (const auto& [answer, name] : answerNames)
            if (json.get_ref<const std::string&>() == name) return answer;
    Refuse("An answer is \"OK\", \"Cancel\", \"Yes\", \"No\" or {\"text\":\"...\"}, not " + json.dump() +
           ".");
}

// The text under the key, empty when there is none.
std::string TextIn(const Json& line, const char* key) {
    const auto found = line.find(key);
    if (found == line.end()) return {};
    if (!found->is_string()) Refuse(std::string("\"") + key + "\" must be a text.");
    return found->get<std::string>();
}

const Json& ArrayIn(const Json& line, const char* key) {
    static const Json none = Json::array();
    const auto found = line.find(key);
    if (found == line.end()) return none;
    if (!found->is_array()) Refuse(std::string("\"") + key + "\" must be an array.");
    return *found;
}

}  // namespace

CallLine ReadCall(const Json& line) {
    if (!line.is_object()) Refuse("A call is an object such as {\"member\":\"ToolID\"}.");
    CallLine call{.on = TextIn(line, "on"), .member = TextIn(line, "member")};
    if (call.member.empty()) Refuse("A call must name its \"member\".");
    const auto put = line.find("put");
    if (put != line.end()) {
        if (line.contains("args")) Refuse("A call has either \"args\" or \"put\".");
        call.kind = CallKind::Put;
        call.arguments.push_back(FromJson(*put));
    }
    for (const auto& argument : ArrayIn(line, "args")) call.arguments.push_back(FromJson(argument));
    for (const auto& answer : ArrayIn(line, "answers")) call.answers.push_back(ReadAnswer(answer));
    return call;
}

Json AskedJson(const AskedQuestion& question) {
    const auto* typed = std::get_if<TypedText>(&question.answer);
    return {
        {"text", question.text},
        {"icon", NameOf(iconNames, question.icon)},
        {"buttons", NameOf(buttonNames, question.buttons)},
        {"answer",
         typed ? Json{{"text", typed->text}} : Json(NameOf(answerNames, std::get<Answer>(question.answer)))},
    };
}

}  // namespace tessel
