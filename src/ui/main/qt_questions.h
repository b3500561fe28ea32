#pragma once

#include "schema/component_state.h"

class QWidget;

namespace tessel {

// Asks in boxes over the active window, or over the main window while none is. Texts are shown as they are,
// never as markup, a long one cut with the whole of it among the details, or in the tooltip of an input box's
// prompt, and the pointer is the usual one also while the component is busy.
class QtQuestions : public host::Questions {
  public:
    // The state outlives the questions.
    explicit QtQuestions(ComponentState& state) : state_(state) {}

    host::Answer Show(const host::MessageBox& box) override;
    std::optional<std::string> Ask(const host::InputBox& box) override;
    std::shared_ptr<Collection> Fill(const host::Form& form) override;

  private:
    [[nodiscard]] QWidget* Owner() const;

    ComponentState& state_;
};

}  // namespace tessel
