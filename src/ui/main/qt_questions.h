#pragma once

#include "host/questions.h"

namespace tessel {

// Asks in boxes over the active window. Texts are shown as they are, never as markup.
class QtQuestions : public host::Questions {
  public:
    host::Answer Show(const host::MessageBox& box) override;
    std::optional<std::string> Ask(const host::InputBox& box) override;
};

}  // namespace tessel
