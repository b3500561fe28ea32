#pragma once

#include <string>
#include <vector>

#include "host/frontend.h"
#include "platform/text/texts.h"

namespace tessel {

// An option of a tree as the user edits it.
struct Option {
    enum class Kind { Bool, Text, Number, List, Group };
    struct Item {
        std::string value;
        std::string caption;
    };

    Kind kind = Kind::Group;
    std::string name;  // its attribute NAME, or else ID
    std::string caption;
    std::string hint;             // may be empty
    std::string value;            // "True" or "False" of a Bool, a decimal number of a Number
    std::vector<Item> items;      // of a List
    std::vector<Option> options;  // of a Group
    xml::Element element;
};

// The part of an option tree that one CASE element holds, to be edited. Its child elements are the options:
// BOOL, TEXT, NUMBER, LIST with a choice of ITEM elements, and CASE and GROUP, which hold further ones. Their
// attributes are NAME or ID, CAPTION, HINT, VALUE, and VISIBLE, which leaves an option out when it is
// "False". A caption or hint that is a '@' and a number is the text of that number.
class OptionCase {
  public:
    // Throws ErrorKind::Xml when the tree has no element at the XPath. `options` outlives this.
    OptionCase(host::Options& options, const std::string& path, const text::Texts& texts);

    [[nodiscard]] const Option& Root() const { return root_; }

    // Changes the value of one of these options; nothing is kept before Save.
    void Set(const Option& option, const std::string& value);
    // Keeps all changes at once; without any, the tree stays as it is.
    void Save();

  private:
    host::Options& options_;
    xml::Document document_;  // a copy of the tree
    Option root_;
    bool isChanged_ = false;
};

}  // namespace tessel
