#include "ui/main/frm_main.h"

#include <QMessageBox>
#include <QPushButton>

#include "ui/main/qt_questions.h"
#include "ui/main/window_test.h"

namespace tessel::test {

using FrmMainTest = WindowTest;
using Lines = std::vector<std::string>;

TEST_F(FrmMainTest, ShowsTheTablesOfTheProject) {
    Start();
    AddTable("Orders");
    AddTable("CUSTOMER");
    WorkspaceOf(state)->TableUpdate(1, Missing{}, Missing{}, "What was\r\nordered", Missing{});
    frmMain& window = Start();
    EXPECT_EQ(window.windowTitle(), "Tessel - Works (Demo) ");
    EXPECT_EQ(Listed(window), (Lines{"*CUSTOMER|", "Orders|What was  ordered"}));
    EXPECT_EQ(window.focusWidget(), &Browser(window));
}

TEST_F(FrmMainTest, FollowsTheWorkspace) {
    frmMain& window = Start();
    const auto workspace = WorkspaceOf(state);
    AddTable("M");
    const std::int32_t first = AddTable("B");
    AddTable("X");
    Browser(window).setCurrentIndex(Browser(window).model()->index(0, 0));
    EXPECT_EQ(Listed(window), (Lines{"*B|", "M|", "X|"}));
    ASSERT_TRUE(workspace->TableUpdate(first, "Z", Missing{}, "last", Missing{}));
    EXPECT_EQ(Listed(window), (Lines{"M|", "X|", "*Z|last"}));
    ASSERT_TRUE(workspace->TableDrop(1));
    EXPECT_EQ(Listed(window), (Lines{"X|", "*Z|last"}));
    state.Database().Execute("update Tables set TableName = 'A' where TableName = 'Z'");
    workspace->RefreshBrowser();
    EXPECT_EQ(Listed(window), (Lines{"*A|last", "X|"}));
}

TEST_F(FrmMainTest, TakesNoInputWhileProgressIsMade) {
    frmMain& window = Start();
    const auto workspace = WorkspaceOf(state);
    workspace->StartProgress("Loading", 2);
    workspace->StartProgress("Loading", 2);
    EXPECT_FALSE(window.isEnabled());
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_FALSE(window.close());
    WhenOpen("messageBox", [](QWidget& box) {
        dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
        box.close();
    });
    EXPECT_EQ(QtQuestions().Show({.text = "Go on?", .title = "T", .buttons = host::Buttons::YesNo}),
              host::Answer::Yes);
    workspace->FinishProgress();
    EXPECT_TRUE(window.isEnabled());
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_EQ(window.focusWidget(), &Browser(window));
    EXPECT_TRUE(window.close());
}

TEST_F(FrmMainTest, KeepsItsSize) {
    frmMain& window = Start();
    ASSERT_NE(window.size(), QSize(510, 410));
    window.resize(510, 410);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(Start().size(), QSize(510, 410));
}

}  // namespace tessel::test
