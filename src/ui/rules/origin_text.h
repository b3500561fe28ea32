#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text/code_page.h"

namespace tessel {

// A source text in the form in which it can be shown.
struct OriginText {
    std::string text;  // UTF-8
    bool isCut = false;
};

inline constexpr std::size_t longestOriginText = 4'000'000;  // bytes
inline constexpr std::size_t longestOriginLine = 4'000;      // bytes

// The characters of the bytes: UTF-8 where they are valid as that, else of the code page, with U+FFFD for a
// byte that has no character. A text that is longer than the longest is cut, at the end of a line where it
// has one, and so is each line.
[[nodiscard]] OriginText ReadableText(std::string_view bytes, const text::CodePage& codePage);

}  // namespace tessel
