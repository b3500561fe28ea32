#pragma once

#include <deque>
#include <string>

#include "cli/json_values.h"
#include "engine/queued_questions.h"

namespace tessel {

// One line of input: a call of a member, or the setting of a property.
struct CallLine {
    std::string
        on{};  // the property of the workspace whose object has the member; empty: the workspace itself
    std::string member{};
    CallKind kind = CallKind::Method;
    Arguments arguments{};
    std::deque<QueuedAnswer> answers{};
};

// Takes a parsed line apart; throws ErrorKind::JsonLine, saying what is wrong with it.
[[nodiscard]] CallLine ReadCall(const Json& line);

[[nodiscard]] Json AskedJson(const AskedQuestion& question);

}  // namespace tessel
