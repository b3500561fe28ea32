#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/text/texts.h"
#include "platform/xml/document.h"

namespace tessel {

// An add-on as the options list it.
struct AddOnEntry {
    std::string caption{};  // with a mnemonic mark "&", where it has one
    std::string name{};
    std::string progID{};
    std::string param{};
    bool verify = false;  // the schema must be free of errors before it runs
};

// The add-ons of the menu Execute, and of the list that drops down from its button.
struct AddOnMenu {
    struct Item {
        std::string caption;    // with those of the lists around it in front; "-" for a separator
        std::size_t entry = 0;  // which of `entries`, from 1; 0 for a separator

        bool operator==(const Item&) const = default;
    };

    std::vector<AddOnEntry> entries;
    std::vector<Item> items;  // none while nothing is listed
};

// The menu that the list "AddOns" of the case "Vantrel" makes. A caption that is a '@' and a number is the
// text of that number. Each list stands between separators; none begins or ends the menu.
[[nodiscard]] AddOnMenu ReadAddOnMenu(const xml::Document& globalOptions, const text::Texts& texts);

}  // namespace tessel
