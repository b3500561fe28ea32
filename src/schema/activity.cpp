#include "schema/activity.h"

namespace tessel {

namespace {

constexpr int doneText = 2088;
constexpr int refusedText = 2089;

}  // namespace

void Note(ComponentState& state, int activity, std::initializer_list<std::string_view> arguments,
          Outcome outcome) {
    Note(state, activity, arguments, state.texts->Text(outcome == Outcome::Done ? doneText : refusedText));
}

void Note(ComponentState& state, int activity, std::initializer_list<std::string_view> arguments,
          const std::string& result) {
    state.Frontend().Log()->Write(state.texts->Format(activity, arguments), result);
}

}  // namespace tessel
