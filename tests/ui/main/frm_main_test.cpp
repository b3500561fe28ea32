#include "ui/main/frm_main.h"

#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <set>

#include "ui/main/qt_questions.h"
#include "ui/main/window_test.h"

namespace tessel::test {

using FrmMainTest = WindowTest;
using Lines = std::vector<std::string>;

TEST_F(FrmMainTest, LoadsInItsOrderAndIsThenReady) {
    Start();
    AddTable("Orders");
    AddTable("CUSTOMER");
    WorkspaceOf(state)->TableUpdate(1, Missing{}, Missing{}, "What was\r\nordered", Missing{});
    state.verifySchema(state);
    frmMain& window = Reopen();
    EXPECT_EQ(window.windowTitle(), "Tessel - Works (Demo) ");
    EXPECT_EQ(Item(window, "mnuHelpWindow").text(), "Tessel Hel&p");
    EXPECT_EQ(Item(window, "mnuHelpAbout").text(), "&About Tessel");
    EXPECT_EQ(Listed(window), (Lines{"*CUSTOMER|", "Orders|What was  ordered"}));
    EXPECT_EQ(window.focusWidget(), &Browser(window));
    EXPECT_EQ(frontend->announced.lock(), state.window);
    EXPECT_TRUE(window.isEnabled());
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_GT(state.sqlTypes.Names().size(), 5U);
    EXPECT_EQ(Panes(window).Caption("Errors"), "2 error(s) found");
    EXPECT_EQ(Find<QTreeView>(window, "lvErrors").model()->rowCount(), 2);
    EXPECT_EQ(Panes(window).Caption("Origin").indexOf("Origin - "), 0);
    EXPECT_FALSE(Find<QProgressBar>(window, "pbProgress").isVisible());
}

TEST_F(FrmMainTest, TheTagOfATableIsItsOrigin) {
    Start();
    const auto source = frontend->repository->Add("TABLE", "S");
    source->attributes["Origin"] = "cobol/orders.cpy";
    const auto other = frontend->repository->Add("RECORD", "R");
    std::int32_t tabID = -1;
    for (const auto& [name, object] : {std::pair{"A", source->Identifier()},
                                       {"B", other->Identifier()},
                                       {"C", std::string("gone")},
                                       {"D", std::string()}})
        ASSERT_TRUE(WorkspaceOf(state)->TableAdd(name, tabID, object, DateTime{}, Null{}, "stored"));
    WorkspaceOf(state)->RefreshBrowser();
    BrowserList list;
    list.Refresh(state.Database(), *frontend);
    Lines tags;
    for (const auto& row : list.Rows()) tags.push_back(row.tag);
    EXPECT_EQ(tags, (Lines{"text:cobol/orders.cpy", "stored", "stored", "stored"}));
}

TEST_F(FrmMainTest, MnemonicsDoNotClashInAnyLanguage) {
    static const QRegularExpression mnemonic("&([^&])");
    const auto check = [](const QList<QAction*>& actions, const std::string& where) {
        std::set<QString> taken;
        for (const QAction* action : actions) {
            if (action->isSeparator()) continue;
            const QString letter = mnemonic.match(action->text()).captured(1).toUpper();
            EXPECT_TRUE(letter.isEmpty() || taken.insert(letter).second)
                << where << ' ' << action->text().toStdString();
        }
    };
    for (const char* language : {"en", "ja", "ko"}) {
        state.texts = std::make_shared<text::Texts>(std::string(TESSEL_SHARE) + "/texts", language);
        QMenuBar bar;
        QToolBar toolbar;
        const Commands commands(*state.texts, bar, toolbar);
        check(bar.actions(), language);
        for (const QMenu* menu : bar.findChildren<QMenu*>())
            check(menu->actions(), language + (' ' + menu->objectName().toStdString()));
    }
}

TEST_F(FrmMainTest, ViewCommandsFollowThePanes) {
    frmMain& window = Start();
    struct {
        const char* item;
        const char* pane;
        const char* button;
        bool atFirst;
    } const cases[] = {
        {"mnuViewBrowser", "Browser", "tbBrowser", true},   {"mnuViewDiagram", "Diagram", "tbDiagram", false},
        {"mnuViewProperties", "Properties", nullptr, true}, {"mnuViewErrors", "Errors", nullptr, false},
        {"mnuViewOrigin", "Origin", nullptr, false},        {"mnuViewLog", "Log", nullptr, false},
    };
    const auto check = [&](const auto& pane, bool isVisible) {
        EXPECT_EQ(Panes(window).IsPaneVisible(pane.pane), isVisible) << pane.pane;
        EXPECT_EQ(Item(window, pane.item).isChecked(), isVisible) << pane.item;
        EXPECT_TRUE(!pane.button || Item(window, pane.button).isChecked() == isVisible) << pane.item;
    };
    for (const auto& pane : cases) {
        check(pane, pane.atFirst);
        Choose(window, pane.item);
        check(pane, !pane.atFirst);
    }
    EXPECT_TRUE(Find<QMenu>(window, "mnuDiagram").isEnabled());
    Choose(window, "tbDiagram");
    check(cases[1], false);
    EXPECT_FALSE(Find<QMenu>(window, "mnuDiagram").isEnabled());
    frontend->log->SetVisible(false);
    check(cases[5], false);
    frontend->log->SetDocked(false);
    frontend->log->SetVisible(true);
    EXPECT_FALSE(Panes(window).IsPaneVisible("Log"));
    EXPECT_TRUE(Item(window, "mnuViewLog").isChecked());
    EXPECT_TRUE(Find<QWidget>(window, "frmLog").isVisible());
}

TEST_F(FrmMainTest, TheArrangementIsFoundAgain) {
    frmMain* window = &Start();
    window->resize(710, 510);
    const QSize size = window->size();
    for (const char* item : {"mnuViewErrors", "mnuViewLog", "mnuViewProperties"}) Choose(*window, item);
    const QString layout = Panes(*window).ExportLayout();
    window = &Reopen();
    EXPECT_EQ(window->size(), size);
    EXPECT_EQ(Panes(*window).ExportLayout(), layout);
    EXPECT_TRUE(Item(*window, "mnuViewLog").isChecked());
    frontend->log->SetDocked(false);
    window = &Reopen();
    EXPECT_TRUE(Find<QWidget>(*window, "frmLog").isVisible()) << "the log in a window of its own";

    EXPECT_TRUE(window->close());
    const auto defaults = [](frmMain& shown) {
        return IsShown(shown, "paneBrowser") && IsShown(shown, "paneProperties") &&
               !IsShown(shown, "paneErrors") && !IsShown(shown, "paneLog") &&
               !IsShown(shown, "paneDiagram") && !IsShown(shown, "paneOrigin");
    };
    const std::string prefix = "uBrowserDiagramPropertiesOriginErrorsLog";
    for (const std::string& damaged : {prefix + "((((", "x" + prefix + layout.toStdString(), std::string()}) {
        QtSettings(SettingsPath("Tessel")).Set("Settings", "ActivityLog", "");
        QtSettings(SettingsPath("Tessel")).Set("Settings", "MainSplitter", damaged);
        EXPECT_TRUE(defaults(Start())) << damaged;
        EXPECT_TRUE(dynamic_cast<frmMain&>(*state.window).close());
    }
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
    state.Database().Execute("delete from Tables where TableName = 'A'");
    workspace->RefreshBrowser();
    EXPECT_EQ(Listed(window), (Lines{"X|"}));
    EXPECT_FALSE(Item(window, "mnuStructureRename").isEnabled());
    EXPECT_TRUE(Item(window, "mnuStructureNew").isEnabled());
}

TEST_F(FrmMainTest, TakesNoInputWhileProgressIsMade) {
    frmMain& window = Start();
    const auto workspace = WorkspaceOf(state);
    auto& bar = Find<QProgressBar>(window, "pbProgress");
    const int width = window.minimumSizeHint().width();
    workspace->StartProgress("Loading " + std::string(4000, 'w'), 1);
    EXPECT_LE(window.minimumSizeHint().width(), width + bar.width());
    workspace->StartProgress("Loading", 0);
    EXPECT_EQ(bar.maximum(), 1);
    workspace->StartProgress("Loading", 2);
    workspace->FinishStep(1);
    workspace->FinishStep(5);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.value(), 1);
    EXPECT_FALSE(window.isEnabled());
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_FALSE(window.close());
    WhenOpen("messageBox", [](QWidget& box) {
        dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
        box.close();
    });
    EXPECT_EQ(QtQuestions(state).Show({.text = "Go on?", .title = "T", .buttons = host::Buttons::YesNo}),
              host::Answer::Yes);
    workspace->FinishProgress();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_TRUE(window.isEnabled());
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_EQ(window.focusWidget(), &Browser(window));
    EXPECT_TRUE(window.close());
}

TEST_F(FrmMainTest, VerificationLeadsToTheTable) {
    Start();
    AddTable("Alone");
    AddTable("Other");
    frmMain& window = Reopen();
    Choose(window, "mnuVerifyAll");
    auto& errors = Find<QTreeView>(window, "lvErrors");
    EXPECT_TRUE(IsShown(window, "paneErrors"));
    EXPECT_TRUE(Panes(window).IsActive("Errors"));
    EXPECT_EQ(Panes(window).Caption("Errors"), "2 error(s) found");
    ASSERT_EQ(errors.model()->rowCount(), 2);
    EXPECT_EQ(errors.model()->index(1, 1).data(), "Table has no columns");
    EXPECT_EQ(frontend->log->activities.back().result, "2 error(s) found");
    emit errors.doubleClicked(errors.model()->index(1, 0));
    EXPECT_EQ(Listed(window), (Lines{"Alone|", "*Other|"}));
    EXPECT_EQ(window.focusWidget(), &Find<QTreeView>(window, "lvProperties"));
    state.Database().Execute("delete from Tables where TableName = 'Alone'");
    WorkspaceOf(state)->RefreshBrowser();
    emit errors.doubleClicked(errors.model()->index(0, 0));
    EXPECT_EQ(Listed(window), (Lines{"*Other|"})) << "an error whose table is gone";
}

TEST_F(FrmMainTest, ClosingVerifiesAndLetsEverythingGo) {
    frmMain& window = Start();
    AddTable("T");
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(frontend->announced.lock());
    EXPECT_FALSE(frontend->log->watcher);
    EXPECT_FALSE(state.workspace || state.database || state.frontend);
    state.window.reset();
    Start();
    EXPECT_EQ(WorkspaceOf(state)->GetProjectSettings("Verified"), "OK");
}

TEST_F(FrmMainTest, TheSchemaIsDeletedOnlyAfterAYes) {
    const auto questions = std::static_pointer_cast<StrictQuestions>(state.questions);
    frmMain& window = Start();
    AddTable("T");
    const std::string file = folder / "Projects/Demo/DBSCHEMA/Demo.mdb";
    questions->Answers({host::Answer::No});
    Choose(window, "mnuFileDelete");
    EXPECT_EQ(Listed(window), (Lines{"T|"}));
    EXPECT_TRUE(std::filesystem::exists(file));
    questions->Answers({host::Answer::Yes});
    Choose(window, "mnuFileDelete");
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(std::filesystem::exists(folder / "Projects/Demo/DBSCHEMA"));
    state.window.reset();
    EXPECT_EQ(Listed(Start()), Lines{}) << "an empty schema";
}

TEST_F(FrmMainTest, F1HelpsWhereTheLogIsActive) {
    frmMain& window = Start();
    const auto help = [&] { return window.findChild<QWidget*>("frmHelp"); };
    Press(Browser(window), Qt::Key_F1);
    Choose(window, "mnuViewLog");
    Press(Browser(window), Qt::Key_F1);
    EXPECT_FALSE(help());
    Panes(window).MakeActive("Log");
    Press(*QApplication::focusWidget(), Qt::Key_F1);
    ASSERT_TRUE(help());
    EXPECT_TRUE(help()->isVisible());
}

TEST_F(FrmMainTest, OptionsAreKept) {
    frmMain& window = Start();
    frontend->projectOptions->document = xml::Document::Parse(
        "<OPTIONS><CASE ID='VNT'><BOOL NAME='ImportAtStart' VALUE='True' CAPTION='x'/></CASE></OPTIONS>",
        "o");
    WhenOpen("frmOptions", [](QWidget& dialog) {
        Find<QAbstractButton>(dialog, "chkImportAtStart").click();
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Choose(window, "tbOptions");
    EXPECT_NE(frontend->projectOptions->document.Text().find("VALUE=\"False\""), std::string::npos);
}

}  // namespace tessel::test
