#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessel::db {

// A default as a person would have written it, and whether it was an expression that nobody could write so.
struct DefaultReading {
    std::optional<std::string> value{};  // nothing for NULL, and for an expression
    bool isExpression = false;
};

// A text as a person types it: bare, or in quotes where the bare one would be taken for something else.
[[nodiscard]] std::string TextDefault(std::string_view text);

// Bytes, by their hexadecimal digits: such as 0xCAFE; empty for none.
[[nodiscard]] std::string BinaryDefault(std::string_view digits);

inline constexpr const char* expressionLeftOut = "its default is an expression, which is not taken";

}  // namespace tessel::db
