#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "engine/tessel_engine.h"
#include "platform/text/environment.h"
#include "support/schema_test.h"
#include "ui/main/frm_main.h"

namespace tessel::test {

using Lines = std::vector<std::string>;

// What the test program's application reported.
inline Lines reported;

// Waits until the window of that name takes input and then acts on it; a modal one runs meanwhile.
inline void WhenOpen(const QString& name, const std::function<void(QWidget&)>& act) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, [=] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() != name || !window->isVisible() || !window->isEnabled()) continue;
            timer->deleteLater();
            timer->stop();
            return act(*window);
        }
    });
    timer->start(1);
}

// A workspace with the project "Demo", whose editor is not started yet.
class WindowTest : public testing::Test {
  protected:
    WindowTest() {
        std::filesystem::create_directories(folder / "Projects/Demo");
        state.texts = std::make_shared<text::Texts>(std::string(TESSEL_SHARE) + "/texts", "en");
        state.codePage = std::make_shared<text::CodePage>(1252);
        state.questions = questions;
        state.loadMainWindow = LoadMainWindow;
    }

    frmMain& Start() {
        EXPECT_EQ(TesselEngine(state).Run(frontend, Missing{}, Missing{}), 0);
        auto& window = dynamic_cast<frmMain&>(*state.window);
        EXPECT_TRUE(window.isVisible());
        return window;
    }

    // Closes the window and opens the editor anew.
    frmMain& Reopen() {
        EXPECT_TRUE(dynamic_cast<frmMain&>(*state.window).close());
        state.window.reset();
        return Start();
    }

    template <typename T>
    static T& Find(const QObject& window, const char* name) {
        T* found = window.findChild<T*>(name);
        if (!found) throw Error(ErrorKind::Host, std::string("no ") + name);
        return *found;
    }
    static QAction& Item(frmMain& window, const char* name) { return Find<QAction>(window, name); }
    static void Choose(frmMain& window, const char* name) {
        ASSERT_TRUE(Item(window, name).isEnabled()) << name;
        Item(window, name).trigger();
    }
    static void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&widget, Qt::Key(key), modifiers);
    }
    static bool IsShown(frmMain& window, const char* pane) { return Find<QWidget>(window, pane).isVisible(); }
    static TSplitter& Panes(frmMain& window) { return Find<TSplitter>(window, "Splitter"); }

    // Waits for what the event loop still has to do.
    static void Until(const std::function<bool()>& condition) {
        EXPECT_TRUE(QTest::qWaitFor(condition)) << "it did not come to pass";
    }

    std::int32_t AddTable(const std::string& name) {
        std::int32_t tabID = -1;
        EXPECT_TRUE(WorkspaceOf(state)->TableAdd(name, tabID, Null{}, DateTime{}, Null{}, Null{})) << name;
        return tabID;
    }

    // The table's last column, an INTEGER that admits Null and comes from a text file of its name.
    void AddColumn(std::int32_t tabID, std::string name) {
        auto last = state.Database().Select("select * from Columns where TabID = " + std::to_string(tabID) +
                                            " order by Position desc");
        const std::int32_t after = last.Next() ? last.Integer("ColumnID") : -1;
        std::int32_t columnID = -1;
        EXPECT_TRUE(WorkspaceOf(state)->ColumnAdd(tabID, name, 4, 0, 0, true, Null{}, Null{}, DateTime{},
                                                  Null{}, "text:" + name + ".txt", after, columnID));
    }

    static QTreeView& Browser(frmMain& window) { return *window.findChild<QTreeView*>("lvBrowser"); }

    static void SelectTable(frmMain& window, int row) {
        Browser(window).setCurrentIndex(Browser(window).model()->index(row, 0));
    }

    // The list's rows as the user sees them, "name|description", the current one with a '*' before it.
    static Lines Listed(frmMain& window) {
        Lines rows;
        const QAbstractItemModel& model = *Browser(window).model();
        for (int row = 0; row < model.rowCount(); ++row)
            rows.push_back(((row == Browser(window).currentIndex().row() ? "*" : "") +
                            model.index(row, 0).data().toString() + "|" +
                            model.index(row, 1).data().toString())
                               .toStdString());
        return rows;
    }

    TemporaryFolder folder;
    Environment environment{{"XDG_CONFIG_HOME", folder / "config"}};
    std::shared_ptr<FakeFrontend> frontend = std::make_shared<FakeFrontend>(folder.Path(), TESSEL_SHARE);
    std::shared_ptr<StrictQuestions> questions = std::make_shared<StrictQuestions>();
    ComponentState state;
};

}  // namespace tessel::test
