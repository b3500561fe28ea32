#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Text is UTF-8 throughout. A character is a Unicode code point; positions and lengths count characters.
namespace tessel::text {

[[nodiscard]] bool IsValidUtf8(std::string_view text);

[[nodiscard]] std::size_t CharacterCount(std::string_view text);

// The first `count` characters.
[[nodiscard]] std::string_view Left(std::string_view text, std::size_t count);

// The characters of valid UTF-8; a byte that is none becomes U+FFFD.
[[nodiscard]] std::u32string Decode(std::string_view text);
[[nodiscard]] std::string Encode(std::u32string_view characters);
void AppendEncoded(std::string& text, char32_t character);

// Without the blanks (U+0020) at both ends.
[[nodiscard]] std::string_view Trim(std::string_view text);

// Equality and order without regard to ASCII case, as the database compares text.
[[nodiscard]] bool SameText(std::string_view left, std::string_view right);
[[nodiscard]] bool TextLess(std::string_view left, std::string_view right);
[[nodiscard]] std::string LowerAscii(std::string_view text);

}  // namespace tessel::text
