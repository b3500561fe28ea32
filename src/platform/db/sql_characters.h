#pragma once

// The characters of SQL text, byte by byte of UTF-8.
namespace tessel::db {

[[nodiscard]] inline bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
[[nodiscard]] inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }
[[nodiscard]] inline bool IsWordStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
[[nodiscard]] inline bool IsWordPart(char c) { return IsWordStart(c) || IsDigit(c) || c == '$'; }

}  // namespace tessel::db
