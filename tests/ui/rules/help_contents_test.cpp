#include "ui/rules/help_contents.h"

#include <gtest/gtest.h>

#include <regex>

#include "support/temporary_folder.h"
#include "tessel/error.h"
#include "ui/rules/help_contexts.h"

namespace tessel::test {

class HelpPagesTest : public testing::TestWithParam<const char*> {
  protected:
    HelpContents help{std::string(TESSEL_SHARE) + "/help/" + GetParam()};
    std::string folder = std::string(TESSEL_SHARE) + "/help/" + GetParam();
};

TEST_P(HelpPagesTest, EachPageIsThereAndEachLinkLeadsToOne) {
    const std::regex link(R"(\]\(([^)]*)\))");
    EXPECT_EQ(help.Topics().size(), HelpContents(std::string(TESSEL_SHARE) + "/help/en").Topics().size());
    std::set<std::string> linkedFromContents;
    for (const auto& topic : help.Topics()) {
        EXPECT_TRUE(std::filesystem::exists(folder + "/" + topic.page + ".md")) << topic.page;
        EXPECT_NE(topic.title, topic.page);
        for (std::sregex_iterator hit(topic.text.begin(), topic.text.end(), link), end; hit != end; ++hit) {
            const std::string target = (*hit)[1];
            if (target.starts_with("icons/")) continue;
            EXPECT_TRUE(target.ends_with(".md") && help.Find(target.substr(0, target.size() - 3)))
                << topic.page << " leads to " << target;
            if (&topic == &help.Topics().front()) linkedFromContents.insert(target);
        }
    }
    EXPECT_EQ(linkedFromContents.size(), help.Topics().size() - 1);
}

TEST_P(HelpPagesTest, EachWindowHasItsPage) {
    namespace context = help_context;
    for (const int number :
         {context::window, context::diagram, context::activityLog, context::options, context::renameTable,
          context::newIndex, context::tableDialog, context::columnDialog, context::indexDialog,
          context::foreignKeyDialog, context::newKeyDialog})
        EXPECT_NE(&help.OfContext(number), &help.Topics().front()) << number;
    for (const int number : {context::none, 17, -1})
        EXPECT_EQ(&help.OfContext(number), &help.Topics().front()) << number;
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpPagesTest, testing::Values("en", "ja", "ko"));

TEST(HelpContentsTest, TakesMissingPagesFromEnglish) {
    const TemporaryFolder folder;
    EXPECT_THROW(HelpContents(folder / "ja"), Error);
    Write(folder / "contents.txt", "# pages\n\nindex\ngone 1\nwindow 2 3\n");
    EXPECT_THROW(HelpContents(folder / "ja"), Error);
    std::filesystem::create_directories(folder / "en");
    Write(folder / "en/index.md", "# Contents\n");
    Write(folder / "en/window.md", "no heading");
    const HelpContents help(folder / "ja");
    ASSERT_EQ(help.Topics().size(), 2U);
    EXPECT_EQ(help.OfContext(1).title, "Contents");
    EXPECT_EQ(help.OfContext(3).title, "window");
}

}  // namespace tessel::test
