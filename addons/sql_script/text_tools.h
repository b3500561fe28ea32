#pragma once

#include <string>
#include <string_view>

// What the tool needs of texts. They are UTF-8; letter case is that of ASCII.
namespace tessel::sql_script {

[[nodiscard]] std::string LowerAscii(std::string_view text);
[[nodiscard]] std::string UpperAscii(std::string_view text);
[[nodiscard]] std::string_view Trim(std::string_view text);  // without blanks, tabs and line ends around it

// Takes the part before the next `delimiter` off the text; all of it when there is none.
[[nodiscard]] std::string_view NextPart(std::string_view& text, char delimiter);

[[nodiscard]] std::size_t CharacterCount(std::string_view text);
// The first `count` characters.
[[nodiscard]] std::string_view LeftCharacters(std::string_view text, std::size_t count);
// As many whole characters as `count` bytes hold.
[[nodiscard]] std::string_view LeftBytes(std::string_view text, std::size_t count);

[[nodiscard]] std::string ReplaceAll(std::string text, std::string_view part, std::string_view by);

// The bytes in hexadecimal digits.
[[nodiscard]] std::string HexOf(std::string_view bytes);
// A short text that depends on the text alone: 8 hexadecimal digits.
[[nodiscard]] std::string Digest(std::string_view text);

}  // namespace tessel::sql_script
