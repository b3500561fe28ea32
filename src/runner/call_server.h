#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "engine/queued_questions.h"
#include "runner/object_handles.h"
#include "schema/component_state.h"

namespace tessel {

// Makes the calls that stand in lines, on the component's workspace and the objects that it gives.
class CallServer {
  public:
    // `questions` must be the ones that the component asks.
    CallServer(ComponentState& state, QueuedQuestions& questions) : state_(state), questions_(questions) {}

    // The answer to the call in a line: its result, or its error.
    [[nodiscard]] Json Answer(std::string_view text);
    // The same for a line that is parsed already.
    [[nodiscard]] Json Answer(const Json& line);

    // A value from a line, with the objects that its handles stand for. Throws ErrorKind::JsonLine.
    [[nodiscard]] Value Read(const Json& value) { return FromJson(value, handles_); }

  private:
    void Call(const Json& line, Json& answer);
    [[nodiscard]] std::shared_ptr<Object> ObjectOn(const Json& on);
    template <typename Act>
    Json Answered(Act&& act);
    [[nodiscard]] Json ArgumentsJson(Arguments arguments);

    ComponentState& state_;
    QueuedQuestions& questions_;
    ObjectHandles handles_;
};

}  // namespace tessel
