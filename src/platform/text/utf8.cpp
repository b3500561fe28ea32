#include "platform/text/utf8.h"

#include <algorithm>
#include <array>

namespace tessel::text {
namespace {

constexpr char32_t replacement = 0xFFFD;

struct Step {
    char32_t character = replacement;
    std::size_t length = 1;
    bool valid = false;
};

bool IsScalar(char32_t character) {
    return character < 0xD800 || (character > 0xDFFF && character <= 0x10FFFF);
}

// Bytes that the lead byte announces; 0 for one that leads nothing.
std::size_t LengthByLead(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2) return 0;
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    return lead < 0xF5 ? 4 : 0;
}

Step ReadSequence(std::string_view text, std::size_t length) {
    constexpr std::array<char32_t, 5> leadMask{0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    char32_t character = static_cast<unsigned char>(text.front()) & leadMask[length];
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80) return {};
        character = character << 6U | (byte & 0x3FU);
    }
    if (character < smallest[length] || !IsScalar(character)) return {};
    return {character, length, true};
}

// The character that `text`, which is not empty, begins with.
Step FirstCharacter(std::string_view text) {
    const auto length = LengthByLead(static_cast<unsigned char>(text.front()));
    if (length == 0 || length > text.size()) return {};
    return ReadSequence(text, length);
}

char LowerLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
    const auto ascii =
        std::find_if(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    text.remove_prefix(std::size_t(ascii - text.begin()));
    while (!text.empty()) {
        const auto step = FirstCharacter(text);
        if (!step.valid) return false;
        text.remove_prefix(step.length);
    }
    return true;
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) text.remove_prefix(FirstCharacter(text).length);
    return count;
}

std::string_view Left(std::string_view text, std::size_t count) {
    auto rest = text;
    for (; count > 0 && !rest.empty(); --count) rest.remove_prefix(FirstCharacter(rest).length);
    return text.substr(0, text.size() - rest.size());
}

std::u32string Decode(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    while (!text.empty()) {
        const auto step = FirstCharacter(text);
        characters += step.character;
        text.remove_prefix(step.length);
    }
    return characters;
}

void AppendEncoded(std::string& text, char32_t character) {
    if (!IsScalar(character)) character = replacement;
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    const auto appendTail = [&](unsigned shift) { append(0x80U | (character >> shift & 0x3FU)); };
    if (character < 0x80) return append(character);
    if (character < 0x800) {
        append(0xC0U | character >> 6U);
        return appendTail(0);
    }
    if (character < 0x10000) {
        append(0xE0U | character >> 12U);
    } else {
        append(0xF0U | character >> 18U);
        appendTail(12);
    }
    appendTail(6);
    appendTail(0);
}

std::string Encode(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size());
    for (const auto character : characters) AppendEncoded(text, character);
    return text;
}

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool SameText(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return LowerLetter(a) == LowerLetter(b); });
}

bool TextLess(std::string_view left, std::string_view right) {
    return std::lexicographical_compare(
        left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
            return static_cast<unsigned char>(LowerLetter(a)) < static_cast<unsigned char>(LowerLetter(b));
        });
}

std::string LowerAscii(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), LowerLetter);
    return lower;
}

}  // namespace tessel::text
