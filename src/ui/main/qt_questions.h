#pragma once

#include <functional>

#include "host/questions.h"

class QWidget;

namespace tessel {

// Asks in boxes over the active window. Texts are shown as they are, never as markup.
class QtQuestions : public host::Questions {
  public:
    // Shows the help at a context number over a dialog.
    using Help = std::function<void(QWidget* dialog, int context)>;

    // `help` is what F1 and the Help button of an input dialog do; without it there are none.
    explicit QtQuestions(Help help = {}) : help_(std::move(help)) {}

    host::Answer Show(const host::MessageBox& box) override;
    std::optional<std::string> Ask(const host::InputBox& box) override;

  private:
    Help help_;
};

}  // namespace tessel
