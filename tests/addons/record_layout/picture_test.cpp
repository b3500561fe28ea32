#include "record_layout/picture.h"

#include <gtest/gtest.h>

namespace tessel::layout {

namespace {

// The category, the digits before and after the point or the length, the sign, and the plain form.
std::string Shown(const char* text) {
    const auto picture = ReadPicture(text);
    if (!picture) return "none";
    static constexpr std::array categories{"text",   "edited text",   "national",
                                           "number", "edited number", "float"};
    const std::string counts = picture->IsNumeric() ? std::to_string(picture->integerDigits) + "." +
                                                          std::to_string(picture->decimalDigits)
                                                    : std::to_string(picture->length);
    return std::string(categories[static_cast<std::size_t>(picture->category)]) + " " + counts +
           (picture->isSigned ? " signed " : " ") + PlainPicture(*picture);
}

TEST(Picture, IsReadSymbolBySymbol) {
    const std::vector<std::pair<const char*, const char*>> pictures{
        {"X", "text 1 X"},
        {"x(10)", "text 10 X(10)"},
        {"AX(3)9(2)", "text 6 X(6)"},
        {"1(8)", "text 8 X(8)"},
        {"XXBXX/X0X", "edited text 9 X(9)"},
        {"N(5)", "national 5 X(5)"},
        {"GGBG", "national 4 X(4)"},
        {"9", "number 1.0 9"},
        {"S9(7)V9(2)", "number 7.2 signed S9(7)V9(2)"},
        {"9V9", "number 1.1 9V9"},
        {"SV9(3)", "number 0.3 signed SV9(3)"},
        {"9(5)V", "number 5.0 9(5)"},
        {"9(3)P(2)", "number 5.0 9(5)"},
        {"SPP99", "number 0.4 signed SV9(4)"},
        {"VPP9", "number 0.3 V9(3)"},
        {"ZZZ,ZZ9.99-", "edited number 6.2 signed S9(6)V9(2)"},
        {"Z.ZZZ.ZZ9,99", "edited number 7.2 9(7)V9(2)"},
        {"$$$,$$9.99CR", "edited number 5.2 signed S9(5)V9(2)"},
        {"+(5)9", "edited number 5.0 signed S9(5)"},
        {"-9(4)", "edited number 4.0 signed S9(4)"},
        {"\xC2\xA5**9DB", "edited number 3.0 signed S9(3)"},
        {"99/99/9999", "edited number 8.0 9(8)"},
        {"+9(3).99E+99", "float 11 signed X(11)"},
        {"9(0000000010)", "number 10.0 9(10)"},
        {"", "none"},
        {"S", "none"},
        {"Q(3)", "none"},
        {"X(0)", "none"},
        {"X(", "none"},
        {"X(3", "none"},
        {"X(-3)", "none"},
        {"(3)", "none"},
        {"X(99999999999999999999)", "none"},
        {"X(2000000000)X", "none"},
        {"9V9V9", "none"},
        {"9.9.9", "none"},
        {"SX(3)", "none"},
        {"E", "none"},
        {"+", "none"},
        {"9C", "none"},
    };
    for (const auto& [text, expected] : pictures) EXPECT_EQ(Shown(text), expected) << text;
}

}  // namespace

}  // namespace tessel::layout
