#include "platform/db/default_text.h"

#include <algorithm>

#include "platform/text/utf8.h"

namespace tessel::db {

std::string TextDefault(std::string_view text) {
    const std::string_view trimmed = text::Trim(text);
    const bool isClear =
        !trimmed.starts_with('\'') && !trimmed.starts_with('"') && !text::SameText(trimmed, "NULL");
    if (isClear) return std::string(text);
    std::string quoted = "'";
    for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
    return quoted + "'";
}

std::string BinaryDefault(std::string_view digits) {
    if (digits.empty()) return {};
    std::string upper(digits);
    std::ranges::transform(upper, upper.begin(), [](char c) {
        return c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return "0x" + upper;
}

}  // namespace tessel::db
