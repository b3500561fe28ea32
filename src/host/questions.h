#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tessel/value.h"

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

// A value that the user is asked for, or something to be read beside those.
struct FormField {
    enum class Kind {
        Text,
        Number,    // a whole number
        Check,     // a Boolean
        Choice,    // one of `choices`, by its value
        OpenFile,  // the path of a file
        SaveFile,
        Note,  // a text to be read
        List,  // a table to be read
    };

    std::string key;
    Kind kind = Kind::Text;
    std::string caption{};
    Value value{};                                               // at first; one that the field can hold
    std::vector<std::pair<std::string, std::string>> choices{};  // each a value and its caption
    std::string filter{};                                        // of files: "SQL scripts (*.sql)"
    std::vector<std::string> columns{};                          // of a list: its captions
    std::vector<std::vector<std::string>> rows{};
};

struct Form {
    std::string title{};
    std::string text{};       // above the fields; may be empty
    std::string okCaption{};  // empty: the usual one
    std::vector<FormField> fields{};
    int helpContext = 0;
};

class Questions {
  public:
    virtual ~Questions() = default;
    // Returns one of the box's own buttons.
    virtual Answer Show(const MessageBox& box) = 0;
    // The typed text; nothing when the user cancelled.
    virtual std::optional<std::string> Ask(const InputBox& box) = 0;
    // The values under the keys of their fields, notes and lists aside; none when the user cancelled.
    virtual std::shared_ptr<Collection> Fill(const Form& form) = 0;
};

}  // namespace tessel::host
