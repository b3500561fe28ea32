#include "ui/rules/origin_text.h"

#include <algorithm>

#include "platform/text/utf8.h"

namespace tessel {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view ellipsis = "\xE2\x80\xA6";
constexpr std::string_view lineEnds = "\r\n";

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// At most `size` bytes, and no part of a character of UTF-8.
std::string_view WholeCharacters(std::string_view text, std::size_t size) {
    if (text.size() <= size) return text;
    while (size > 0 && IsContinuation(text[size])) --size;
    return text.substr(0, size);
}

std::string_view WholeLines(std::string_view text, std::size_t size) {
    if (text.size() <= size) return text;
    const auto end = text.substr(0, size).find_last_of(lineEnds);
    return end == std::string_view::npos ? WholeCharacters(text, size) : text.substr(0, end + 1);
}

OriginText WithShortLines(std::string_view text) {
    OriginText shortened;
    shortened.text.reserve(text.size());
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(lineEnds), text.size());
        const auto line = WholeCharacters(text.substr(0, end), longestOriginLine);
        shortened.text.append(line);
        if (line.size() < end) {
            shortened.text.append(ellipsis);
            shortened.isCut = true;
        }
        const auto next = std::min(text.find_first_not_of(lineEnds, end), text.size());
        shortened.text.append(text.substr(end, next - end));
        text.remove_prefix(next);
    }
    return shortened;
}

}  // namespace

OriginText ReadableText(std::string_view bytes, const text::CodePage& codePage) {
    const std::string_view part = WholeLines(bytes, longestOriginText);
    const bool isUtf8 = text::IsValidUtf8(part);
    OriginText readable = WithShortLines(isUtf8 ? part : codePage.Decode(part));
    if (readable.text.starts_with(byteOrderMark)) readable.text.erase(0, byteOrderMark.size());
    if (part.size() < bytes.size()) readable.isCut = true;
    return readable;
}

}  // namespace tessel
