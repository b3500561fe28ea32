#pragma once

#include <string>
#include <utility>
#include <vector>

#include "schema/component_state.h"

namespace tessel {

// What there is to show for an origin reference.
struct OriginContent {
    std::string title;
    std::vector<std::pair<std::string, std::string>> attributes;  // name and value, in the order of showing
    std::string text;                                             // UTF-8
    int line = 0;        // the one that the reference means, from 1; 0 for none
    std::string notice;  // a sentence for the user about what is not shown; may be empty
};

// Reads what the reference names:
//   "text:PATH"  a source text, by its path from the workspace's folder on
//   "obj:ID"     an object of the repository, with the source text behind it
// Either may end with ":LINE". What cannot be read is said in the notice; nothing is thrown. An empty
// reference has a title only.
[[nodiscard]] OriginContent ReadOrigin(ComponentState& state, const std::string& reference);

}  // namespace tessel
