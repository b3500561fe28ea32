#pragma once

#include <optional>
#include <string>

// The one way in which anything below the window asks the user.
namespace tessel::host {

enum class Icon { None, Critical, Exclamation, Warning, Information };
enum class Buttons { OK, OKCancel, YesNo };
enum class Answer { OK, Cancel, Yes, No };

struct MessageBox {
    std::string text{};
    std::string title{};
    Icon icon = Icon::None;
    Buttons buttons = Buttons::OK;
    std::string detail{};  // why, in a sentence of its own below the text; may be empty
};

struct InputBox {
    std::string prompt{};
    std::string title{};
    std::string text{};  // what the field holds at first
    std::string helpFile{};
    int helpContext = 0;
};

class Questions {
  public:
    virtual ~Questions() = default;
    // Returns one of the box's own buttons.
    virtual Answer Show(const MessageBox& box) = 0;
    // The typed text; nothing when the user cancelled.
    virtual std::optional<std::string> Ask(const InputBox& box) = 0;
};

}  // namespace tessel::host
