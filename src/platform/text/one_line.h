#pragma once

#include <string>

namespace tessel::text {

// The text with a blank for each control character, so that it stays on its line and means nothing to a
// terminal.
[[nodiscard]] std::string OnOneLine(std::string text);

}  // namespace tessel::text
