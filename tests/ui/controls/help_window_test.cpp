#include "ui/controls/help_window.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include "support/schema_test.h"
#include "ui/rules/help_contexts.h"

namespace tessel::test {

class HelpWindowTest : public SchemaTest {
  protected:
    HelpWindowTest() {
        state.helpFile = std::string(TESSEL_SHARE) + "/help/en";
        owner.setObjectName("owner");
        owner.show();
    }

    static QDialog& Help(QWidget& window) { return *window.findChild<QDialog*>("frmHelp"); }
    template <typename Widget>
    static Widget& In(QWidget& window, const QString& name) {
        return *window.findChild<Widget*>(name);
    }
    static std::string Heading(QWidget& help) {
        return In<QTextBrowser>(help, "txtHelpPage").document()->begin().text().toStdString();
    }

    QWidget owner;
};

TEST_F(HelpWindowTest, OpensThePageOfTheContextInOneWindow) {
    for (const auto& [context, heading] : {std::pair(help_context::columnDialog, "Column properties"),
                                           {help_context::renameTable, "Names"},
                                           {12345, "Contents"}}) {
        ShowHelp(state, &owner, context);
        EXPECT_EQ(owner.findChildren<QDialog*>("frmHelp").size(), 1);
        EXPECT_EQ(Heading(Help(owner)), heading);
        EXPECT_EQ(In<QListWidget>(Help(owner), "lvHelpTopics").currentItem()->text(), heading);
    }
    EXPECT_EQ(Help(owner).windowTitle(), "Tessel Help");
    owner.hide();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !owner.findChild<QDialog*>("frmHelp"); }));
}

TEST_F(HelpWindowTest, GoesBackAndForthAndFindsTopics) {
    ShowHelpFinder(state, &owner);
    QDialog& help = Help(owner);
    auto& topics = In<QListWidget>(help, "lvHelpTopics");
    EXPECT_EQ(Heading(help), "Contents");
    QTest::keyClicks(&In<QLineEdit>(help, "txtHelpFilter"), "line json ");
    for (int row = 0; row < topics.count(); ++row)
        EXPECT_EQ(topics.item(row)->isHidden(), topics.item(row)->text() != "The command line");
    QTest::keyClick(&In<QLineEdit>(help, "txtHelpFilter"), Qt::Key_Return);
    EXPECT_EQ(Heading(help), "The command line");
    In<QAction>(help, "tbBack").trigger();
    EXPECT_EQ(Heading(help), "Contents");
    EXPECT_FALSE(In<QAction>(help, "tbBack").isEnabled());
    In<QAction>(help, "tbForward").trigger();
    EXPECT_EQ(Heading(help), "The command line");
    In<QAction>(help, "tbContents").trigger();
    EXPECT_EQ(Heading(help), "Contents");

    In<QAction>(help, "tbFind").trigger();
    auto& find = In<QLineEdit>(help, "txtFind");
    for (const auto& [typed, found] : {std::pair{"keyb", "Keyb"}, {"oard", "Keyboard"}, {"s", "Keyboard"}}) {
        QTest::keyClicks(&find, typed);
        QTest::keyClick(&find, Qt::Key_Return);
        EXPECT_EQ(In<QTextBrowser>(help, "txtHelpPage").textCursor().selectedText(), found);
        EXPECT_EQ(In<QLabel>(help, "lblNotFound").text(), find.text() == "keyboards" ? "Not found" : "");
    }
    QTest::keyClick(&find, Qt::Key_Escape);
    EXPECT_FALSE(find.isVisible());
}

TEST_F(HelpWindowTest, TakesInputBesideAModalDialog) {
    QDialog modal(&owner);
    modal.setWindowModality(Qt::ApplicationModal);
    ShowHelpFinder(state, &owner);
    modal.show();
    ShowHelpFinder(state, &modal);
    const auto clicked = [](QDialog& help) {
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&help));
        auto& topics = In<QListWidget>(help, "lvHelpTopics");
        const QPoint topic = topics.visualItemRect(topics.item(1)).center();
        QTest::mouseClick(help.windowHandle(), Qt::LeftButton, {}, topics.viewport()->mapTo(&help, topic));
        return Heading(help);
    };
    EXPECT_EQ(clicked(Help(owner)), "Contents");
    EXPECT_EQ(clicked(Help(modal)), "The window and its panes");
}

TEST_F(HelpWindowTest, SaysWhenThereAreNoPages) {
    state.helpFile = folder / "help/en";
    ShowHelp(state, &owner, help_context::window);
    EXPECT_FALSE(owner.findChild<QDialog*>("frmHelp"));
    const auto asked = questions->TakeAsked();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_NE(asked.front().detail.find("contents.txt"), std::string::npos) << asked.front().detail;
}

}  // namespace tessel::test
