#include "runner/call_line.h"

#include "runner/object_handles.h"
#include "schema/question_words.h"
#include "tessel/error.h"

namespace tessel {

namespace {

namespace words = question_words;

[[noreturn]] void Refuse(const std::string& message) { throw Error(ErrorKind::JsonLine, message); }

Json AnswerJson(const QueuedAnswer& answer) {
    if (const auto* typed = std::get_if<TypedText>(&answer)) return {{"text", typed->text}};
    if (const auto* filled = std::get_if<FilledForm>(&answer)) {
        ObjectHandles none;
        Json values = Json::object();
        for (const auto& [key, value] : *filled->values) values[key] = ToJson(value, none);
        return {{"values", std::move(values)}};
    }
    return words::WordOf(words::answers, std::get<host::Answer>(answer));
}

QueuedAnswer ReadAnswer(const Json& json, ObjectsInLines& objects) {
    if (const Json* text = OnlyItem(json, "text"); text && text->is_string())
        return TypedText{text->get<std::string>()};
    if (const Json* values = OnlyItem(json, "values"); values && values->is_object()) {
        FilledForm filled{std::make_shared<Collection>()};
        for (const auto& [key, item] : values->items()) filled.values->Add(FromJson(item, objects), key);
        return filled;
    }
    if (json.is_string())
        if (const auto answer = words::Meaning(words::answers, json.get_ref<const std::string&>()))
            return *answer;
    Refuse(
        "An answer is \"OK\", \"Cancel\", \"Yes\", \"No\", {\"text\":\"...\"} or {\"values\":{...}}, not " +
        LineOf(json) + ".");
}

// The object that the call is made on; null for the workspace.
Json ObjectIn(const Json& line) {
    const auto found = line.find("on");
    if (found == line.end()) return nullptr;
    if (!found->is_string() && !found->is_number_unsigned()) Refuse("\"on\" must be a name or a handle.");
    return *found;
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

CallLine ReadCall(const Json& line, ObjectsInLines& objects) {
    if (!line.is_object()) Refuse("A call is an object such as {\"member\":\"ToolID\"}.");
    CallLine call{.on = ObjectIn(line), .member = TextIn(line, "member")};
    if (call.member.empty()) Refuse("A call must name its \"member\".");
    const auto put = line.find("put");
    if (put != line.end()) {
        if (line.contains("args")) Refuse("A call has either \"args\" or \"put\".");
        call.kind = CallKind::Put;
        call.arguments.push_back(FromJson(*put, objects));
    }
    for (const auto& argument : ArrayIn(line, "args")) call.arguments.push_back(FromJson(argument, objects));
    if (line.contains("answers")) call.answers = ReadAnswers(line["answers"], objects);
    return call;
}

std::deque<QueuedAnswer> ReadAnswers(const Json& answers, ObjectsInLines& objects) {
    if (!answers.is_array()) Refuse("\"answers\" must be an array.");
    std::deque<QueuedAnswer> read;
    for (const auto& answer : answers) read.push_back(ReadAnswer(answer, objects));
    return read;
}

Json AskedJson(const AskedQuestion& question) {
    return {
        {"text", question.text},
        {"icon", words::WordOf(words::icons, question.icon)},
        {"buttons", words::WordOf(words::buttons, question.buttons)},
        {"answer", AnswerJson(question.answer)},
    };
}

}  // namespace tessel
