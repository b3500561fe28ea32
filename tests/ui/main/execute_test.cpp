#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QToolButton>
#include <deque>

#include "runner/component_list.h"
#include "ui/main/qt_questions.h"
#include "ui/main/window_test.h"

namespace tessel::test {

namespace {

using Lines = std::vector<std::string>;

std::string Tool(const std::string& caption, const std::string& more = "") {
    return "<TOOL NAME='n' CAPTION='" + caption + "' VISIBLE='True'><TEXT NAME='ProgID' VALUE='Test.Tool'/>" +
           "<TEXT NAME='Param' VALUE='a b'/>" + more + "</TOOL>";
}
std::string Group(const std::string& caption, const std::string& tools) {
    return "<GROUP CAPTION='" + caption + "' VISIBLE='True'><LIST>" + tools + "</LIST></GROUP>";
}

class ExecuteTest : public WindowTest {
  protected:
    ExecuteTest() { state.questions = std::make_shared<QtQuestions>(state); }

    frmMain& StartWith(const std::string& list) {
        frontend->globalOptions = xml::Document::Parse(
            "<OPTIONS><CASE ID='Vantrel'>" + list + "</CASE></OPTIONS>", "global options");
        return Start();
    }
    // The window with the one tool "Tool", which is this script of the shell's.
    frmMain& StartWithTool(const std::string& script, const std::string& more = "",
                           const std::string& caption = "&amp;Tool") {
        const std::string path = folder / "tool.sh";
        Write(path, "#!/bin/sh\ncall() { echo \"$1\"; read -r answer; }\n" + script);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        EnterClasses(UserComponentsPath(),
                     {{.progID = "Test.Tool", .kind = RegisteredClass::Kind::Program, .file = path}});
        return StartWith("<LIST NAME='AddOns'>" + Tool(caption, more) + "</LIST>");
    }
    static std::string AddingTable(const std::string& name) {
        return R"(call '{"member":"TableAdd","args":[")" + name +
               R"(",0,null,{"date":"2026-01-31"},null,null]}')" + "\n";
    }

    // The items, "name tag text", disabled ones in parentheses.
    static Lines Items(const QMenu& menu) {
        Lines items;
        for (const QAction* item : menu.actions()) {
            const QString shown = QString("%1 %2 %3")
                                      .arg(item->objectName(), item->data().toString(),
                                           item->isSeparator() ? "-" : item->text());
            items.push_back((item->isEnabled() ? shown : '(' + shown + ')').toStdString());
        }
        return items;
    }
    // Answers the message boxes that come, and keeps what they say. `then` follows the first answer.
    void Answer(
        std::deque<QMessageBox::StandardButton> buttons, const std::function<void()>& then = [] {}) {
        if (buttons.empty()) return;
        WhenOpen("messageBox", [this, buttons, then](QWidget& window) mutable {
            auto& box = dynamic_cast<QMessageBox&>(window);
            EXPECT_FALSE(FindWindow("frmRunning")) << "it stands in the way";
            EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
            said.push_back((box.text() + '|' + box.informativeText()).toStdString());
            box.button(buttons.front())->click();
            buttons.pop_front();
            then();
            Answer(buttons);
        });
    }
    static QWidget* FindWindow(const char* name) {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == name && window->isVisible()) return window;
        return nullptr;
    }
    static void ExpectAwake(frmMain& window) {
        EXPECT_TRUE(window.isEnabled());
        EXPECT_FALSE(QApplication::overrideCursor());
        EXPECT_FALSE(FindWindow("frmRunning"));
        EXPECT_EQ(window.focusWidget(), &Browser(window));
    }

    Lines said;
};

const std::string failure = "Failed to start Tool\nProgID: Test.Tool\nParam: a b|";

TEST_F(ExecuteTest, TheMenuAndTheDropDownListTheAddOns) {
    const struct {
        std::string list;
        Lines items;
    } cases[] = {
        {"", {"(mnuExecuteItem  (not available))"}},
        {"<LIST NAME='AddOns'><TOOL VISIBLE='False'><TEXT NAME='ProgID'/></TOOL></LIST>",
         {"(mnuExecuteItem  (not available))"}},
        {"<LIST NAME='AddOns'>" + Tool("R&amp;&amp;D") + Group("&amp;More", Tool("&amp;In")) +
             Group("追加(&amp;M)", Tool("書く(&amp;W)") + Tool("-")) + Tool("Last") + "</LIST>",
         {"mnuExecuteItem 1 R&&D", "  -", "mnuExecuteItem_1 2 More &In", "  -",
          "mnuExecuteItem_2 3 追加 書く(&W)", "mnuExecuteItem_3 4 追加(&M) -", "  -",
          "mnuExecuteItem_4 5 Last"}},
    };
    for (const auto& expected : cases) {
        frmMain& window = StartWith(expected.list);
        EXPECT_EQ(Items(Find<QMenu>(window, "mnuExecute")), expected.items);
        const bool isEmpty = expected.items.size() == 1;
        EXPECT_EQ(Items(Find<QMenu>(window, "tbExecuteMenu")), isEmpty ? Lines{} : expected.items);
        auto& toolbar = Find<QToolBar>(window, "tbToolbar");
        auto& button = dynamic_cast<QToolButton&>(*toolbar.widgetForAction(&Item(window, "tbExecute")));
        EXPECT_EQ(button.menu() != nullptr, !isEmpty);
        button.click();
        EXPECT_TRUE(Find<QMenu>(window, "mnuExecute").isVisible());
        EXPECT_TRUE(window.close());
        state.window.reset();
    }
}

TEST_F(ExecuteTest, AToolChangesTheSchemaAndSelectsATable) {
    frmMain& window = StartWithTool(
        AddingTable("MADE") + "pwd > here; printf '%s' \"$1\" > param\n" +
        R"(call '{"on":"ProjectDB","member":"Execute","args":["update Tables set Comments=TableName where TabID=1"]}')"
        "\n"
        R"(call '{"member":"StartProgress","args":["Working",10]}')"
        "\n"
        R"(call '{"member":"SelectedTabID","put":2}')"
        "\n");
    AddTable("OLD");
    Browser(window).setCurrentIndex(Browser(window).model()->index(0, 0));
    Choose(window, "mnuExecuteItem");
    EXPECT_EQ(Listed(window), (Lines{"*MADE|", "OLD|OLD"}));
    auto& diagram = Find<TDiagram>(window, "Diagram");
    EXPECT_EQ(diagram.BoxKeys().size(), 2U);
    EXPECT_EQ(files::ReadFile(folder / "here"), folder.Path() + "\n") << "the workspace's folder";
    EXPECT_EQ(files::ReadFile(folder / "param"), "a b");
    ExpectAwake(window);
}

TEST_F(ExecuteTest, TheTableShownFollowsTheTool) {
    frmMain& window = StartWithTool(
        R"(call '{"on":"ProjectDB","member":"Execute","args":["delete from Columns where ColumnID=1"]}')"
        "\n");
    const std::int32_t table = AddTable("T");
    std::string name = "C";
    std::int32_t column = -1;
    ASSERT_TRUE(WorkspaceOf(state)->ColumnAdd(table, name, 4, 0, 0, true, Null{}, Null{}, DateTime{}, Null{},
                                              Null{}, -1, column));
    WorkspaceOf(state)->RefreshBrowser();
    Browser(window).setCurrentIndex(Browser(window).model()->index(0, 0));
    window.SetCVRL("text:kept.txt");
    const auto& properties = *Find<QTreeView>(window, "lvProperties").model();
    ASSERT_EQ(properties.rowCount(), 1);
    Choose(window, "mnuExecuteItem");
    EXPECT_EQ(properties.rowCount(), 0);
    EXPECT_EQ(window.CVRL(), "text:kept.txt");
}

TEST_F(ExecuteTest, AToolThatFailsKeepsItsChangesOnlyAfterAYes) {
    frmMain& window = StartWithTool(AddingTable("HALF") + "exit 3\n");
    Answer({QMessageBox::Ok, QMessageBox::No, QMessageBox::Ok, QMessageBox::Yes});
    Choose(window, "mnuExecuteItem");
    EXPECT_EQ(Listed(window), Lines{});
    Choose(window, "mnuExecuteItem");
    EXPECT_EQ(Listed(window), (Lines{"HALF|"}));
    ASSERT_EQ(said.size(), 4U);
    EXPECT_EQ(said[0], failure + "It ended with the exit code 3.");
    ExpectAwake(window);
}

TEST_F(ExecuteTest, AToolThatHangsIsStopped) {
    frmMain& window = StartWithTool(AddingTable("HALF") + "while [ ! -e go ]; do sleep 0.02; done\n" +
                                    R"(call '{"on":"ToolWindow","member":"Message","args":["Still here"]}')" +
                                    "\nsleep 600\n");
    Answer({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::No}, [] {
        WhenOpen("frmRunning", [](QWidget& again) { Find<QAbstractButton>(again, "cmdCancel").click(); });
    });
    WhenOpen("frmRunning", [&](QWidget& running) {
        EXPECT_EQ(Find<QLabel>(running, "lblRunning").text(), "Running 'Tool'...");
        EXPECT_EQ(Listed(window), (Lines{"HALF|"}));
        EXPECT_FALSE(window.isEnabled());
        EXPECT_FALSE(window.close());
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        for (const char* item : {"mnuExecuteItem", "mnuFileDelete", "mnuVerifyAll", "mnuStructureNew"})
            Item(window, item).trigger();
        Write(folder / "go", "");
    });
    Choose(window, "mnuExecuteItem");
    ASSERT_EQ(said.size(), 3U);
    EXPECT_EQ(said[0], "Still here|");
    EXPECT_EQ(said[1], failure + "It was stopped.");
    EXPECT_EQ(Listed(window), Lines{});
    ExpectAwake(window);
}

TEST_F(ExecuteTest, AToolThatAsksWithoutEndIsStopped) {
    const std::string ask =
        R"(call '{"on":"ToolWindow","member":"Message","args":["Again",null,"OKCancel"]}')";
    frmMain& window = StartWithTool("call '{\"member\":\"MethodName\"}'\nprintf '%s' \"$answer\" > name\n" +
                                        ("while " + ask + "; do :; done\n"),
                                    "", "&amp;More &amp;Tool");
    std::deque<QMessageBox::StandardButton> buttons(20, QMessageBox::Ok);
    buttons.push_back(QMessageBox::No);
    buttons.insert(buttons.end(), 20, QMessageBox::Cancel);
    buttons.insert(buttons.end(), {QMessageBox::Yes, QMessageBox::Ok});
    Answer(buttons);
    Choose(window, "mnuExecuteItem");
    ASSERT_EQ(said.size(), 43U);
    EXPECT_EQ(said[19], "Again|");
    EXPECT_EQ(said[20], "'More Tool' keeps asking. Stop it?|");
    EXPECT_EQ(said[41], said[20]);
    EXPECT_NE(said[42].find("It was stopped."), std::string::npos);
    EXPECT_NE(files::ReadFile(folder / "name").find(R"("More &Tool")"), std::string::npos);
    ExpectAwake(window);
}

TEST_F(ExecuteTest, ATableThatOnlyTheDatabaseKnowsIsSelected) {
    frmMain& window = StartWithTool(
        R"(call '{"on":"ProjectDB","member":"Execute","args":["insert into Tables (TabID, TableName) select 7, TableName || 2 from Tables"]}')"
        "\n"
        R"(call '{"member":"SelectedTabID","put":7}')"
        "\n");
    AddTable("OLD");
    Choose(window, "mnuExecuteItem");
    EXPECT_EQ(Listed(window), (Lines{"OLD|", "*OLD2|"}));
}

TEST_F(ExecuteTest, ASchemaWithErrorsKeepsAToolFromStarting) {
    frmMain& window = StartWithTool("touch started\n", "<BOOL NAME='Verify' VALUE='True'/>");
    AddTable("Alone");
    Answer({QMessageBox::Ok});
    Choose(window, "mnuExecuteItem");
    EXPECT_EQ(said, (Lines{"You should fix DBSchema errors before running 'Tool'.|"}));
    EXPECT_FALSE(std::filesystem::exists(folder / "started"));
    EXPECT_EQ(Find<QTreeView>(window, "lvErrors").model()->rowCount(), 1);
    EXPECT_TRUE(window.isEnabled());
}

TEST_F(ExecuteTest, AToolAsksByAForm) {
    frmMain& window = StartWithTool(R"(call '{"on":"ToolWindow","member":"Form","args":[{"caption":"Ask",)"
                                    R"("fields":{"name":{"kind":"text","caption":"&Name:","value":"x"}}}]}')"
                                    "\nprintf '%s' \"$answer\" > answer\n");
    WhenOpen("frmForm", [](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Ask");
        QTest::keyClicks(&Find<QLineEdit>(form, "name"), "y");
        QTest::keyClick(&form, Qt::Key_Return);
    });
    Choose(window, "mnuExecuteItem");
    EXPECT_TRUE(files::ReadFile(folder / "answer").starts_with(R"({"result":{"name":"y"},)"));
    ExpectAwake(window);
}

TEST_F(ExecuteTest, OptionsThatCannotBeReadAreSaidOnce) {
    struct Damaged : FakeFrontend {
        using FakeFrontend::FakeFrontend;
        const xml::Document& GlobalOptions() override { throw Error(ErrorKind::Xml, "options.xml, line 3"); }
    };
    frontend = std::make_shared<Damaged>(folder.Path(), TESSEL_SHARE);
    Answer({QMessageBox::Ok});
    frmMain& window = Start();
    EXPECT_EQ(said, (Lines{"options.xml, line 3|"}));
    EXPECT_FALSE(Item(window, "mnuExecuteItem").isEnabled());
    ExpectAwake(window);
}

}  // namespace

}  // namespace tessel::test
