#pragma once

#include <memory>

#include "cli/session.h"
#include "engine/queued_questions.h"

namespace tessel {

// A project opened as the window would open it, without a window: the type catalogue is loaded, nothing is
// imported.
struct HeadlessSession {
    std::unique_ptr<Session> session;
    std::shared_ptr<QueuedQuestions> questions;

    [[nodiscard]] ComponentState& State() const { return session->state; }
};

// Throws when the project cannot be opened, with what the window would have told the user.
[[nodiscard]] HeadlessSession OpenHeadless(const SessionOptions& options);

}  // namespace tessel
