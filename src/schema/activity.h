#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "schema/component_state.h"

namespace tessel {

enum class Outcome { Done, Refused };

// Writes a line into the host's activity log: the text of that number with its arguments, and what came of
// it.
void Note(ComponentState& state, int activity, std::initializer_list<std::string_view> arguments,
          Outcome outcome);
void Note(ComponentState& state, int activity, std::initializer_list<std::string_view> arguments,
          const std::string& result);

}  // namespace tessel
