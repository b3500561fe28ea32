#include "ui/main/frm_main.h"

#include <QHelpEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QToolTip>

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
    EXPECT_EQ(window.objectName(), "frmMain");
    EXPECT_EQ(window.windowTitle(), "Tessel - Works (Demo) ");
    EXPECT_EQ(Listed(window), (Lines{"*CUSTOMER|", "Orders|What was  ordered"}));
    const QAbstractItemModel& model = *Browser(window).model();
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole), "Table");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole), "Description");
    EXPECT_EQ(window.focusWidget(), &Browser(window));
    EXPECT_GT(state.sqlTypes.Names().size(), 10U);
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
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
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

TEST_F(FrmMainTest, ATooltipShowsATextThatIsCutOff) {
    frmMain& window = Start();
    window.DrawTable("A", 1, "", "short");
    window.DrawTable("B", 2, "", "<b>" + std::string(1000, 'x'));
    const auto tipAt = [&](int row) {
        const QPoint place = Browser(window).visualRect(Browser(window).model()->index(row, 1)).center();
        QHelpEvent help(QEvent::ToolTip, place, Browser(window).viewport()->mapToGlobal(place));
        QApplication::sendEvent(Browser(window).viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text().left(12).toStdString() : "";
    };
    EXPECT_EQ(tipAt(0), "");
    EXPECT_EQ(tipAt(1), "<p>&lt;b&gt;");
}

}  // namespace tessel::test
