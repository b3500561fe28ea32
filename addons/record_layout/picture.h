#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessel::layout {

// What the string after PIC says about its item.
struct Picture {
    enum class Category { Text, EditedText, National, Number, EditedNumber, Float };

    Category category = Category::Text;
    std::int64_t length = 0;         // characters; of a number without its implied point and sign
    std::int64_t integerDigits = 0;  // of a number, the zeros that P stands for included
    std::int64_t decimalDigits = 0;
    bool isSigned = false;

    bool operator==(const Picture&) const = default;
    [[nodiscard]] bool IsNumeric() const;
    [[nodiscard]] std::int64_t Digits() const { return integerDigits + decimalDigits; }
};

inline constexpr std::int64_t longestPicture = 2'000'000'000;  // characters

// Nothing when the string is no picture.
[[nodiscard]] std::optional<Picture> ReadPicture(std::string_view text);

// The picture without editing and scaling, as GetCompatibleType takes it: X(10), S9(7)V9(2).
[[nodiscard]] std::string PlainPicture(const Picture& picture);

}  // namespace tessel::layout
