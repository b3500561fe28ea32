#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessel::layout {

// The content as UTF-8 without a mark at its front, its other bytes taken as Latin-1; `wasUtf8` says whether
// there were none.
[[nodiscard]] std::string ToUtf8(std::string_view content, bool& wasUtf8);

// The lines without their ends and the blanks before those; tabs widened, control characters made blanks.
[[nodiscard]] std::vector<std::string> SplitLines(std::string_view text);

// The part of the line in columns `from` up to but not `to`, from 1; a wide character takes two columns.
[[nodiscard]] std::string_view Columns(std::string_view line, std::size_t from, std::size_t to);

[[nodiscard]] std::size_t ColumnCount(std::string_view line);

// The first `count` characters of valid UTF-8.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t count);

[[nodiscard]] std::string_view TrimmedLeft(std::string_view text);
[[nodiscard]] std::string_view Trimmed(std::string_view text);
[[nodiscard]] char UpperCase(char character);  // ASCII letters only
[[nodiscard]] std::string Upper(std::string_view text);
[[nodiscard]] bool IsDigit(char character);
[[nodiscard]] bool IsNumber(std::string_view text);  // digits only, one at least

}  // namespace tessel::layout
