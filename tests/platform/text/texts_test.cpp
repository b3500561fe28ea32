#include "platform/text/texts.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "platform/text/environment.h"
#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::text {
namespace {

class TextsFile : public testing::Test {
  protected:
    [[nodiscard]] Texts Read(const std::string& content) const {
        Write(folder_ / "en.txt", content);
        return {folder_.Path(), "en"};
    }

    TemporaryFolder folder_;
};

TEST_F(TextsFile, LinesAreNumberedOrNamed) {
    const auto texts = Read("# note\n\n12 two  blanks \n13 a\\r\\n\\tb\\\\n\n14 \nTessel.Name Tessel");
    EXPECT_EQ(texts.Text(12), "two  blanks ");
    EXPECT_EQ(texts.Text(13), "a\r\n\tb\\n");
    EXPECT_EQ(texts.Product("Tessel.Name"), "Tessel");
    EXPECT_THROW((void)texts.Text(15), Error);
    EXPECT_THROW((void)texts.Product("ProductName"), Error);
}

TEST_F(TextsFile, FaultsNameFileAndLine) {
    for (const auto* line : {"12", "12 a\\x", "12 a\\", "12 \xFF", "11 again"}) {
        try {
            (void)Read(std::string("11 a\n") + line + "\n13 b\n");
            ADD_FAILURE() << line;
        } catch (const Error& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::File);
            EXPECT_NE(std::string(error.what()).find("en.txt, line 2:"), std::string::npos) << error.what();
        }
    }
    EXPECT_THROW(Texts(folder_.Path(), "fr"), Error);
}

TEST(Texts, PlaceholdersAreFilledInOnePass) {
    EXPECT_EQ(FormatText("%1%2", {"%2", "%1"}), "%2%1");
    EXPECT_EQ(FormatText("%0 %1 %2 %10 %", {"x"}), "%0 x %2 x0 %");
}

TEST(Texts, LocaleChoosesTheLanguage) {
    const std::map<std::string, std::string> languages = {
        {"ja_JP.UTF-8", "ja"}, {"ko", "ko"}, {"fr_FR", "en"}, {"C", "en"}};
    for (const auto& [locale, language] : languages) {
        const Environment environment{{"LC_ALL", ""}, {"LC_MESSAGES", locale}, {"LANG", "ja_JP"}};
        EXPECT_EQ(LanguageOfLocale(), language) << locale;
    }
}

// The placeholders of each text, by its number.
std::map<std::string, std::multiset<char>> Placeholders(const Texts& texts) {
    std::map<std::string, std::multiset<char>> placeholders;
    for (const auto& [name, text] : texts) {
        auto& found = placeholders[name];
        for (auto at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1))
            found.insert(at + 1 < text.size() ? text[at + 1] : '\0');
    }
    return placeholders;
}

TEST(Texts, LanguagesHoldTheSameNumbersAndPlaceholders) {
    const auto english = Placeholders(Texts(TESSEL_TEXTS, "en"));
    EXPECT_EQ(english.at("517"), (std::multiset<char>{'1', '2'}));
    for (const auto* language : {"ja", "ko"}) EXPECT_EQ(Placeholders(Texts(TESSEL_TEXTS, language)), english);
}

}  // namespace
}  // namespace tessel::text
