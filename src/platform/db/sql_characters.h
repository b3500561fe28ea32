#pragma once

#include <array>

// The characters of SQL text, byte by byte of UTF-8.
namespace tessel::db {

enum CharacterKind : unsigned char { blank = 1, digit = 2, wordStart = 4, wordPart = 8 };

// The kinds of each byte; scanning asks for every byte of every statement.
inline constexpr auto characterKinds = [] {
    std::array<unsigned char, 256> kinds{};
    const auto mark = [&](unsigned first, unsigned last, unsigned kind) {
        for (unsigned c = first; c <= last; ++c) kinds[c] |= static_cast<unsigned char>(kind);
    };
    mark('\t', '\r', blank);
    mark(' ', ' ', blank);
    mark('0', '9', digit | wordPart);
    mark('$', '$', wordPart);
    mark('A', 'Z', wordStart | wordPart);
    mark('a', 'z', wordStart | wordPart);
    mark('_', '_', wordStart | wordPart);
    mark(0x80, 0xFF, wordStart | wordPart);
    return kinds;
}();

[[nodiscard]] inline bool Is(CharacterKind kind, char c) {
    return (characterKinds[static_cast<unsigned char>(c)] & kind) != 0;
}
[[nodiscard]] inline bool IsBlank(char c) { return Is(blank, c); }
[[nodiscard]] inline bool IsDigit(char c) { return Is(digit, c); }
[[nodiscard]] inline bool IsWordStart(char c) { return Is(wordStart, c); }
[[nodiscard]] inline bool IsWordPart(char c) { return Is(wordPart, c); }

}  // namespace tessel::db
