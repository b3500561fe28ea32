#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/text/utf8.h"

namespace tessel::xml {

// A control character is held only when it is a line end or a tab.
[[nodiscard]] inline bool IsHeld(char letter) {
    return static_cast<unsigned char>(letter) >= 0x20 || letter == '\t' || letter == '\n' || letter == '\r';
}

// Whether a document can hold the text: UTF-8 without other control characters.
[[nodiscard]] inline bool CanBeHeld(std::string_view text) {
    return text::IsValidUtf8(text) && std::ranges::all_of(text, IsHeld);
}

// The text with a blank for each control character that is not held.
[[nodiscard]] inline std::string Blanked(std::string text) {
    std::ranges::replace_if(
        text, [](char letter) { return !IsHeld(letter); }, ' ');
    return text;
}

}  // namespace tessel::xml
