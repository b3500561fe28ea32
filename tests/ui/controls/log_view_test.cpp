#include "ui/controls/log_view.h"

#include <QClipboard>
#include <QMenu>
#include <QScrollBar>

#include "ui/main/window_test.h"

namespace tessel::test {
namespace {

class LogViewTest : public WindowTest {
  protected:
    LogViewTest() {
        log.Register([this](auto change) {
            if (change == host::ActivityLog::Change::Written) view.Refresh();
        });
    }

    void WriteMany(int count) {
        for (int i = 0; i < count; ++i) log.Write("Verify", std::to_string(i));
        QApplication::processEvents();
    }
    // The rows that the user sees, from the first to the last.
    [[nodiscard]] std::pair<int, int> Seen() const {
        const QRect area = view.viewport()->rect();
        return {view.indexAt(area.topLeft()).row(), view.indexAt(area.bottomLeft()).row()};
    }
    void Choose(const char* item) {
        emit view.PopupWanted(QPoint());
        auto* menu = view.findChild<QMenu*>("mnuLog");
        menu->findChild<QAction*>(item)->trigger();
        delete menu;
    }

    FakeLog log;
    LogView view{log, *state.texts};
};

TEST_F(LogViewTest, FollowsTheNewestUnlessTheUserScrolledUp) {
    view.resize(400, 200);
    view.show();
    WriteMany(10000);
    EXPECT_EQ(view.model()->rowCount(), 10000);
    const auto atEnd = [&] { return view.visualRect(view.model()->index(view.model()->rowCount() - 1, 0)); };
    EXPECT_TRUE(view.viewport()->rect().contains(atEnd().center()));
    view.resize(400, 100);
    QApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(atEnd().center())) << "after the view became smaller";

    view.verticalScrollBar()->setValue(500);
    const auto seen = Seen();
    WriteMany(3);
    EXPECT_EQ(Seen(), seen);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    WriteMany(3);
    EXPECT_TRUE(view.viewport()->rect().contains(atEnd().center())) << "at the end again";
}

TEST_F(LogViewTest, CopiesTheSelectedLinesInTheirOrder) {
    log.activities = {{*ParseIso("2026-01-31T10:00:00"), "Drop table A", "Done"}};
    log.Write("Import", "");
    log.Write("Verify", "Done");
    for (const int row : {1, 0})
        view.selectionModel()->select(view.model()->index(row, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    Press(view, Qt::Key_C, Qt::ControlModifier);
    const QString time = view.model()->index(0, 0).data().toString();
    EXPECT_TRUE(time.contains("26")) << time.toStdString();
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], time + "\tDrop table A\tDone");
    EXPECT_TRUE(lines[1].endsWith("\tImport\t"));
    EXPECT_EQ(lines[2], "");
}

TEST_F(LogViewTest, ItsMenuAndKeysChangeTheLogsStateAndAskForHelp) {
    log.visible = true;
    Choose("mnuLogDock");
    EXPECT_FALSE(log.docked);
    Choose("mnuLogDock");
    EXPECT_TRUE(log.docked);
    Choose("mnuLogClose");
    EXPECT_FALSE(log.visible);
    int helps = 0;
    QObject::connect(&view, &LogView::HelpWanted, [&] { ++helps; });
    Press(view, Qt::Key_F1);
    EXPECT_EQ(helps, 1);
}

TEST_F(LogViewTest, TheWindowOfItsOwnClosesTheLogAndRemembersItsPlace) {
    log.visible = true;
    QWidget owner;
    {
        LogWindow window(log, *state.texts, &owner);
        window.Show(view);
        EXPECT_TRUE(view.isVisible());
        window.resize(333, 222);
        window.close();
        EXPECT_FALSE(log.visible);
        view.setParent(nullptr);
    }
    EXPECT_EQ(LogWindow(log, *state.texts, &owner).size(), QSize(333, 222));
}

}  // namespace
}  // namespace tessel::test
