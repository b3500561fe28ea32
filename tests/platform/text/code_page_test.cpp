#include "platform/text/code_page.h"

#include <gtest/gtest.h>

#include "platform/text/environment.h"
#include "tessel/error.h"

namespace tessel::text {
namespace {

TEST(CodePage, DoubleByteIsWhatTakesTwoBytes) {
    struct Case {
        char32_t character;
        bool in932;
        bool in949;
    };
    const Case cases[] = {
        {U'A', false, false}, {U'\\', false, false},         {U'é', false, false},
        {U'あ', true, true},  {U'ｱ', false, false},  // half-width katakana takes one byte in 932
        {U'가', false, true}, {U'똠', false, true},          {U'０', true, true},
        {U'漢', true, true},  {U'\U00020BB7', false, false}, {0x110000, false, false},
    };
    const CodePage japanese(932);
    const CodePage korean(949);
    for (const auto& [character, in932, in949] : cases) {
        SCOPED_TRACE(unsigned{character});
        for (int pass = 0; pass < 2; ++pass) EXPECT_EQ(japanese.IsDoubleByte(character), in932) << pass;
        EXPECT_EQ(korean.IsDoubleByte(character), in949);
        for (const int other : {1252, 65001}) EXPECT_FALSE(CodePage(other).IsDoubleByte(character));
    }
}

TEST(CodePage, CharacterOfReadsTwoByteCodesOnly) {
    const CodePage japanese(932);
    EXPECT_EQ(japanese.CharacterOf(0x824F), U'０');
    EXPECT_EQ(japanese.CharacterOf(0x4142), std::nullopt);  // two characters of one byte
    EXPECT_EQ(japanese.CharacterOf(0x82FF), std::nullopt);
    EXPECT_EQ(CodePage(949).CharacterOf(0xB0A1), U'가');
}

TEST(CodePage, EnvironmentChoosesIt) {
    struct Case {
        std::string own, all, type, lang;
        int number;
    };
    const Case cases[] = {
        {"", "", "", "ja_JP.UTF-8", 932},
        {"", "", "ko_KR", "ja_JP", 949},
        {"", "de_DE.UTF-8", "ko_KR", "ja_JP", 1252},
        {"", "jam_JM", "", "", 1252},
        {"65001", "ja_JP", "", "", 65001},
    };
    for (const auto& [own, all, type, lang, number] : cases) {
        const Environment environment{
            {"TESSEL_CODEPAGE", own}, {"LC_ALL", all}, {"LC_CTYPE", type}, {"LANG", lang}};
        EXPECT_EQ(CodePage::FromEnvironment().Number(), number) << own << all << type << lang;
    }
    for (const auto* wrong : {"437", "utf-8", "932 ", "99999999999"}) {
        const Environment environment{{"TESSEL_CODEPAGE", wrong}};
        EXPECT_THROW((void)CodePage::FromEnvironment(), Error) << wrong;
    }
}

}  // namespace
}  // namespace tessel::text
