#pragma once

#include <deque>
#include <optional>
#include <string>

#include "engine/queued_questions.h"
#include "lines/json_values.h"

namespace tessel {

// One line of input: a call of a member, or the setting of a property.
struct CallLine {
    Json on{};  // the object that has the member, by its name or handle; null: the workspace
    std::string member{};
    CallKind kind = CallKind::Method;
    Arguments arguments{};
    std::optional<std::deque<QueuedAnswer>> answers{};  // nothing when the line has none
};

// Takes a parsed line apart; throws ErrorKind::JsonLine, saying what is wrong with it.
[[nodiscard]] CallLine ReadCall(const Json& line, ObjectsInLines& objects);

// The answers of an array such as ["OK",{"text":"NewName"}]. Throws ErrorKind::JsonLine.
[[nodiscard]] std::deque<QueuedAnswer> ReadAnswers(const Json& answers, ObjectsInLines& objects);

// A question as it stands among the messages of an answer.
[[nodiscard]] Json AskedJson(const AskedQuestion& question);

}  // namespace tessel
