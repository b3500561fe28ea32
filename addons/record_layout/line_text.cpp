#include "line_text.h"

#include <algorithm>
#include <cstddef>

namespace tessel::layout {

namespace {

constexpr std::size_t tabWidth = 8;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

unsigned Byte(char character) { return static_cast<unsigned char>(character); }
bool IsTail(char character) { return (Byte(character) & 0xC0U) == 0x80U; }

// The length of the UTF-8 sequence at `start`; 0 when there is none. Surrogates and overlong forms are none.
std::size_t SequenceLength(std::string_view text, std::size_t start) {
    const unsigned lead = Byte(text[start]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length < 2) return length;
    if (lead > 0xF4 || start + length > text.size()) return 0;
    const unsigned second = Byte(text[start + 1]);
    const bool fits = !(lead == 0xE0 && second < 0xA0) && !(lead == 0xED && second > 0x9F) &&
                      !(lead == 0xF0 && second < 0x90) && !(lead == 0xF4 && second > 0x8F);
    return fits && std::ranges::all_of(text.substr(start + 1, length - 1), IsTail) ? length : 0;
}

// Wide are the scripts of East Asia, which take two bytes where columns are counted in bytes.
std::size_t WidthAt(std::string_view line, std::size_t start) {
    if (IsTail(line[start])) return 0;
    const unsigned lead = Byte(line[start]);
    const bool isHangulOrBeyond = lead > 0xE1 || (lead == 0xE1 && Byte(line[start + 1]) >= 0x84);
    return isHangulOrBeyond ? 2 : 1;
}

std::string Widened(std::string_view line) {
    std::string wide;
    std::size_t column = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const std::size_t count = line[i] == '\t' ? tabWidth - column % tabWidth : WidthAt(line, i);
        if (line[i] == '\t')
            wide.append(count, ' ');
        else
            wide += Byte(line[i]) < ' ' || line[i] == '\x7F' ? ' ' : line[i];
        column += count;
    }
    wide.erase(wide.find_last_not_of(' ') + 1);
    return wide;
}

}  // namespace

std::string ToUtf8(std::string_view content, bool& wasUtf8) {
    if (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
    wasUtf8 = true;
    std::string text;
    text.reserve(content.size());
    for (std::size_t i = 0; i < content.size();) {
        const std::size_t length = SequenceLength(content, i);
        if (length == 0) {
            wasUtf8 = false;
            text += static_cast<char>(0xC0U | Byte(content[i]) >> 6U);
            text += static_cast<char>(0x80U | (Byte(content[i]) & 0x3FU));
        }
        text.append(content, i, length);
        i += std::max<std::size_t>(length, 1);
    }
    return text;
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.push_back(Widened(text.substr(0, end)));
        const std::size_t ending = text.substr(end).starts_with("\r\n") ? 2 : 1;
        text.remove_prefix(std::min(end + ending, text.size()));
    }
    return lines;
}

std::string_view Columns(std::string_view line, std::size_t from, std::size_t to) {
    std::size_t column = 1;
    std::size_t start = line.size();
    for (std::size_t i = 0; i < line.size(); ++i) {
        const std::size_t width = WidthAt(line, i);
        if (width == 0) continue;
        if (column >= from) start = std::min(start, i);
        if (column + width > to) return line.substr(start, i - std::min(start, i));
        column += width;
    }
    return line.substr(start);
}

std::size_t ColumnCount(std::string_view line) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < line.size(); ++i) count += WidthAt(line, i);
    return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; end < text.size() && (count > 0 || IsTail(text[end])); ++end) count -= IsTail(text[end]) ? 0 : 1;
    return text.substr(0, end);
}

std::string_view TrimmedLeft(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view Trimmed(std::string_view text) {
    const std::string_view left = TrimmedLeft(text);
    return left.substr(0, left.find_last_not_of(' ') + 1);
}

char UpperCase(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

std::string Upper(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), UpperCase);
    return upper;
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool IsNumber(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit); }

}  // namespace tessel::layout
