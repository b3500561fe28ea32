#pragma once

#include <algorithm>
#include <string_view>

#include "platform/text/utf8.h"

namespace tessel::xml {

// Whether a document can hold the text: UTF-8 without control characters, line ends and tabs aside.
[[nodiscard]] inline bool CanBeHeld(std::string_view text) {
    const auto isHeld = [](char letter) {
        return static_cast<unsigned char>(letter) >= 0x20 || letter == '\t' || letter == '\n' ||
               letter == '\r';
    };
    return text::IsValidUtf8(text) && std::ranges::all_of(text, isHeld);
}

}  // namespace tessel::xml
