#include "platform/text/utf8.h"

#include <gtest/gtest.h>

#include "platform/text/one_line.h"

namespace tessel::text {
namespace {

TEST(Utf8, SequencesAreReadStrictly) {
    struct Case {
        std::string_view bytes;
        bool valid;
        std::u32string_view characters;
    };
    const Case cases[] = {
        {"", true, U""},
        {"a\x7F", true, U"a\x7F"},
        {"\xC2\x80\xDF\xBF", true, U"\u0080\u07FF"},
        {"\xE0\xA0\x80\xEF\xBF\xBF", true, U"\u0800\uFFFF"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", true, U"\U00010000\U0010FFFF"},
        {"a\x80z", false, U"a\uFFFDz"},
        {"\xC0\xAF", false, U"\uFFFD\uFFFD"},                      // overlong
        {"\xE0\x80\x80", false, U"\uFFFD\uFFFD\uFFFD"},            // overlong
        {"\xED\xA0\x80", false, U"\uFFFD\uFFFD\uFFFD"},            // surrogate
        {"\xF4\x90\x80\x80", false, U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last code point
        {"\xE3\x81", false, U"\uFFFD\uFFFD"},                      // cut off
        {"\xE3z", false, U"\uFFFDz"},
    };
    for (const auto& [bytes, valid, characters] : cases) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        EXPECT_EQ(IsValidUtf8(bytes), valid);
        EXPECT_EQ(Decode(bytes), characters);
        EXPECT_EQ(CharacterCount(bytes), characters.size());
        EXPECT_EQ(Encode(characters) == bytes, valid);
    }
    EXPECT_EQ(Encode(std::u32string{0xD800, 0x110000}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, LeftCountsCharactersAndTrimTakesBlanksOnly) {
    EXPECT_EQ(Left("aあ𠮷z", 3), "aあ𠮷");
    EXPECT_EQ(Left("aあ", 9), "aあ");
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(Trim("　a"), "　a");
}

TEST(OnOneLine, BlanksEveryControlCharacterAndNothingElse) {
    EXPECT_EQ(OnOneLine("a\x1b[31m\r\nb\x7f\xc2\x80\xc2\x9f\xc2\xa0あ\xc2"), "a [31m  b   \xc2\xa0あ\xc2");
}

TEST(Utf8, ComparisonIgnoresAsciiCaseOnly) {
    EXPECT_TRUE(SameText("TabID[", "tabid["));
    EXPECT_FALSE(SameText("Ä", "ä"));
    EXPECT_FALSE(SameText("@", "`"));
    EXPECT_TRUE(TextLess("a_", "Ab"));  // '_' stands before the lower-case letters
    EXPECT_FALSE(TextLess("AB", "ab"));
    EXPECT_TRUE(TextLess("z", "あ"));
    EXPECT_EQ(LowerAscii("ÄBZ[@"), "Äbz[@");
}

}  // namespace
}  // namespace tessel::text
