#include "cli/headless_session.h"

#include "engine/headless_window.h"
#include "engine/tessel_engine.h"

namespace tessel {

namespace {

std::string AllAsked(QueuedQuestions& questions) {
    std::string text;
    for (const auto& asked : questions.TakeAsked()) text += (text.empty() ? "" : "\n") + OneLine(asked);
    return text;
}

}  // namespace

HeadlessSession OpenHeadless(const SessionOptions& options) {
    HeadlessSession headless{OpenSession(options), std::make_shared<QueuedQuestions>()};
    headless.State().questions = headless.questions;
    headless.State().loadMainWindow = LoadHeadlessWindow;
    TesselEngine engine(headless.State());
    if (engine.Run(headless.session->frontend, Missing{}, Missing{}) != 0)
        throw Error(ErrorKind::Host, AllAsked(*headless.questions));
    return headless;
}

}  // namespace tessel
