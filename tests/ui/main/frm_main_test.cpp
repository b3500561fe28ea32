#include "ui/main/frm_main.h"

#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <set>

#include "ui/main/qt_questions.h"
#include "ui/main/window_test.h"

namespace tessel::test {

using FrmMainTest = WindowTest;

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
    const std::string record = frontend->repository->Add("RECORD", "R")->Identifier();
    std::int32_t tabID = -1;
    for (const auto& [name, object] :
         {std::pair{"A", source->Identifier()}, {"B", record}, {"C", "gone"}, {"D", ""}})
        ASSERT_TRUE(WorkspaceOf(state)->TableAdd(name, tabID, object, DateTime{}, Null{}, "stored"));
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
        const char* pane;
        bool isVisible;
        bool hasButton;
    } panes[] = {{"Browser", true, true},  {"Diagram", false, true}, {"Properties", true, false},
                 {"Errors", false, false}, {"Origin", false, false}, {"Log", false, false}};
    const auto check = [&](const auto& pane) {
        const std::string name = pane.pane;
        EXPECT_EQ(Panes(window).IsPaneVisible(pane.pane), pane.isVisible) << name;
        EXPECT_EQ(Item(window, ("mnuView" + name).c_str()).isChecked(), pane.isVisible) << name;
        EXPECT_TRUE(!pane.hasButton || Item(window, ("tb" + name).c_str()).isChecked() == pane.isVisible)
            << name;
    };
    for (auto& pane : panes) {
        check(pane);
        Choose(window, ("mnuView" + std::string(pane.pane)).c_str());
        pane.isVisible = !pane.isVisible;
        check(pane);
    }
    EXPECT_TRUE(Find<QMenu>(window, "mnuDiagram").isEnabled());
    Choose(window, "tbDiagram");
    EXPECT_FALSE(Panes(window).IsPaneVisible("Diagram"));
    EXPECT_FALSE(Find<QMenu>(window, "mnuDiagram").isEnabled());
    frontend->log->SetDocked(false);
    EXPECT_FALSE(Panes(window).IsPaneVisible("Log"));
    EXPECT_TRUE(Item(window, "mnuViewLog").isChecked());
    EXPECT_TRUE(Find<QWidget>(window, "frmLog").isVisible());
    frontend->log->SetVisible(false);
    EXPECT_FALSE(Item(window, "mnuViewLog").isChecked());
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
    const auto shown = [](frmMain& started) {
        std::string panes;
        for (const char* name : {"Browser", "Diagram", "Properties", "Origin", "Errors", "Log"})
            if (Panes(started).IsPaneVisible(name)) panes += name;
        return panes;
    };
    const std::string prefix = "uBrowserDiagramPropertiesOriginErrorsLog";
    QtSettings(SettingsPath("Tessel")).Set("Others", "Key", "of another version");
    QtSettings(SettingsPath("Tessel")).Set("Settings", "MainWindow", "no geometry");
    for (const std::string& damaged : {prefix + "((((", "x" + prefix + layout.toStdString(), std::string()}) {
        QtSettings(SettingsPath("Tessel")).Set("Settings", "ActivityLog", "");
        QtSettings(SettingsPath("Tessel")).Set("Settings", "MainSplitter", damaged);
        EXPECT_EQ(shown(Start()), "BrowserProperties") << damaged;
        EXPECT_TRUE(dynamic_cast<frmMain&>(*state.window).close());
    }
    EXPECT_EQ(QtSettings(SettingsPath("Tessel")).Get("Others", "Key"), "of another version");
}

TEST_F(FrmMainTest, FollowsTheWorkspace) {
    frmMain& window = Start();
    const auto workspace = WorkspaceOf(state);
    AddTable("M");
    const std::int32_t first = AddTable("B");
    AddTable("X");
    SelectTable(window, 0);
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
    workspace->StartProgress("<b>" + std::string(4000, 'w'), 1);
    EXPECT_TRUE(Find<QLabel>(window, "lblProgress").toolTip().startsWith("<p>&lt;b&gt;w"));
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
    int drawn = 0;
    QObject::connect(&Find<TDiagram>(window, "Diagram"), &TDiagram::Changed, [&] { ++drawn; });
    state.window->DrawTable("NEW", 99, "", "");
    EXPECT_EQ(drawn, 0);
    workspace->FinishProgress();
    EXPECT_EQ(drawn, 1);
    EXPECT_FALSE(bar.isVisible());
    EXPECT_TRUE(window.isEnabled());
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_EQ(window.focusWidget(), &Browser(window));
    EXPECT_TRUE(window.close());
}

TEST_F(FrmMainTest, VerificationLeadsToEachPlace) {
    Start();
    std::int32_t id = -1;
    for (const char* name : {"CUSTOMER", "ORDERS", "EMPTY"}) AddTable(name);
    AddColumn(1, "TaxNo");
    AddColumn(2, "PlacedBy");
    ASSERT_TRUE(WorkspaceOf(state)->IndexAdd(1, "AK", id) && WorkspaceOf(state)->IndexAdd(2, "IX", id) &&
                WorkspaceOf(state)->ForeignAdd(2, 1, "FK", id));
    for (const char* sql :
         {"update Indices set Unique = 1 where IndexName = 'AK'",
          "insert into IndexColumns (IndexID, ColumnID, Position, Direction) values (1, 1, 1, 'A')"})
        state.Database().Execute(sql);
    frmMain& window = Reopen();
    Choose(window, "mnuVerifyAll");
    auto& errors = Find<QTreeView>(window, "lvErrors");
    auto& tabs = Find<QTabBar>(window, "tsProperties");
    auto& properties = Find<QTreeView>(window, "lvProperties");
    EXPECT_TRUE(IsShown(window, "paneErrors") && Panes(window).IsActive("Errors"));
    EXPECT_EQ(Panes(window).Caption("Errors"), "5 error(s) found");
    EXPECT_EQ(frontend->log->activities.back().result, "5 error(s) found");
    const auto leadsTo = [&](int error) {
        const QModelIndex row = errors.model()->index(error, 0);
        errors.scrollTo(row);
        const QPoint place = errors.visualRect(row).center();
        QTest::mouseClick(errors.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(errors.viewport(), Qt::LeftButton, {}, place);
        const auto rows = properties.selectionModel()->selectedRows();
        const QStringList shown{Browser(window).currentIndex().data().toString(),
                                tabs.tabText(tabs.currentIndex()), rows.value(0).data().toString()};
        return shown.join(' ').toStdString();
    };
    SelectTable(window, 1);
    Lines places;
    for (int error = 0; error < 5; ++error) {
        places.push_back(leadsTo(error));
        EXPECT_EQ(window.focusWidget(), &properties);
    }
    EXPECT_EQ(places, (Lines{"CUSTOMER Columns TaxNo", "ORDERS Columns ", "ORDERS Keys FK", "ORDERS Keys FK",
                             "EMPTY Columns "}));
    state.Database().Execute("delete from Tables where TableName = 'CUSTOMER'");
    WorkspaceOf(state)->RefreshBrowser();
    EXPECT_EQ(leadsTo(0), places[4]) << "an error whose table is gone";
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

TEST_F(FrmMainTest, CommandsOpenTheirDialogs) {
    frmMain& window = Start();
    frontend->projectOptions->document = xml::Document::Parse("<OPTIONS><CASE ID='VNT'/></OPTIONS>", "o");
    for (const auto& [command, name] : {std::pair{"tbOptions", "frmOptions"}, {"mnuHelpAbout", "frmAbout"}}) {
        bool isOpened = false;
        WhenOpen(name, [&](QWidget& dialog) { isOpened = dialog.close(); });
        Choose(window, command);
        EXPECT_TRUE(isOpened) << command;
    }
}

}  // namespace tessel::test
