#include "sql_script/text_tools.h"

#include <algorithm>
#include <cstdint>

namespace tessel::sql_script {

namespace {

constexpr char hexDigits[] = "0123456789abcdef";

bool BeginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xc0) != 0x80; }

}  // namespace

std::string LowerAscii(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

std::string UpperAscii(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::string_view Trim(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view NextPart(std::string_view& text, char delimiter) {
    const auto end = std::min(text.find(delimiter), text.size());
    const auto part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

std::size_t CharacterCount(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, BeginsCharacter));
}

std::string_view LeftCharacters(std::string_view text, std::size_t count) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (BeginsCharacter(text[i]) && count-- == 0) return text.substr(0, i);
    return text;
}

std::string_view LeftBytes(std::string_view text, std::size_t count) {
    if (text.size() <= count) return text;
    while (count > 0 && !BeginsCharacter(text[count])) --count;
    return text.substr(0, count);
}

std::string ReplaceAll(std::string text, std::string_view part, std::string_view by) {
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + by.size()))
        text.replace(at, part.size(), by);
    return text;
}

std::string HexOf(std::string_view bytes) {
    std::string hex;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        hex += hexDigits[byte >> 4];
        hex += hexDigits[byte & 0xf];
    }
    return hex;
}

std::string Digest(std::string_view text) {
    std::uint32_t hash = 0x811c9dc5;  // FNV-1a
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x01000193;
    std::string digits;
    for (int shift = 28; shift >= 0; shift -= 4) digits += hexDigits[(hash >> shift) & 0xf];
    return digits;
}

}  // namespace tessel::sql_script
