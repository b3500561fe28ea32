#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QToolButton>
#include <deque>

#include "runner/component_list.h"
#include "ui/main/qt_questions.h"
#include "ui/main/window_test.h"

namespace tessel::test {

namespace {

std::string Tool(const std::string& caption) {
    return "<TOOL NAME='n' CAPTION='" + caption + "' VISIBLE='True'><TEXT NAME='ProgID' VALUE='Test.Tool'/>" +
           "<TEXT NAME='Param' VALUE='a b'/></TOOL>";
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
    frmMain& StartWithTool(const std::string& script, const std::string& caption = "&amp;Tool") {
        const std::string path = folder / "tool.sh";
        Write(path, "#!/bin/sh\ncall() { echo \"$1\"; read -r answer; }\n" + script);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        EnterClasses(UserComponentsPath(),
                     {{.progID = "Test.Tool", .kind = RegisteredClass::Kind::Program, .file = path}});
        return StartWith("<LIST NAME='AddOns'>" + Tool(caption) + "</LIST>");
    }
    // Lines of a script.
    static std::string Call(const std::string& call) { return "call '{" + call + "}'\n"; }
    static std::string AddingTable(const std::string& name) {
        return Call(R"("member":"TableAdd","args":[")" + name +
                    R"(",0,null,{"date":"2026-01-31"},null,null])");
    }
    static std::string Executing(const std::string& sql) {
        return Call(R"("on":"ProjectDB","member":"Execute","args":[")" + sql + R"("])");
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
        Executing("update Tables set Comments=TableName where TabID=1") +
        Executing(
            "insert into Tables (TabID, TableName) select 7, TableName || 2 from Tables where TabID=1") +
        Call(R"("member":"StartProgress","args":["Working",10])") +
        Call(R"("member":"SelectedTabID","put":7)"));
    AddTable("OLD");
    SelectTable(window, 0);
    int drawn = 0;
    QObject::connect(&Find<TDiagram>(window, "Diagram"), &TDiagram::Changed, [&] { ++drawn; });
    Choose(window, "mnuExecuteItem");
    EXPECT_EQ(drawn, 2) << "once the run ends, and once what it changed is known";
    EXPECT_EQ(Listed(window), (Lines{"MADE|", "OLD|OLD", "*OLD2|"}));
    EXPECT_EQ(Find<TDiagram>(window, "Diagram").BoxKeys().size(), 3U);
    EXPECT_EQ(files::ReadFile(folder / "here"), folder.Path() + "\n") << "the workspace's folder";
    EXPECT_EQ(files::ReadFile(folder / "param"), "a b");
    ExpectAwake(window);
}

TEST_F(ExecuteTest, TheTableShownFollowsTheTool) {
    frmMain& window = StartWithTool(Executing("delete from Columns where ColumnID=1"));
    AddColumn(AddTable("T"), "C");
    SelectTable(window, 0);
    window.SetCVRL("text:kept.txt");
    const auto& properties = *Find<QTreeView>(window, "lvProperties").model();
    ASSERT_EQ(properties.rowCount(), 1);
    Choose(window, "mnuExecuteItem");
    EXPECT_EQ(properties.rowCount(), 0);
    EXPECT_EQ(window.CVRL(), "text:kept.txt");
}

TEST_F(ExecuteTest, AToolThatHangsIsStopped) {
    frmMain& window =
        StartWithTool(AddingTable("HALF") + "while [ ! -e go ]; do sleep 0.02; done\n" +
                      Call(R"("on":"ToolWindow","member":"Message","args":["Still here"])") + "sleep 600\n");
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
    EXPECT_EQ(said[1], "Failed to start Tool\nProgID: Test.Tool\nParam: a b|It was stopped.");
    EXPECT_EQ(Listed(window), Lines{});
    ExpectAwake(window);
}

TEST_F(ExecuteTest, AToolThatAsksWithoutEndIsStopped) {
    frmMain& window = StartWithTool(
        Call(R"("member":"MethodName")") + "printf '%s' \"$answer\" > name\nwhile " +
            Call(R"("on":"ToolWindow","member":"Message","args":["Again",null,"OKCancel"])") + "do :; done\n",
        "&amp;More &amp;Tool");
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

TEST_F(ExecuteTest, AToolAsksByAForm) {
    frmMain& window =
        StartWithTool(Call(R"("on":"ToolWindow","member":"Form","args":[{"caption":"Ask","fields":{"name":)"
                           R"({"kind":"text","caption":"&Name:","value":"x"}}}])") +
                      "printf '%s' \"$answer\" > answer\n");
    WhenOpen("frmForm", [](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Ask");
        QTest::keyClick(&form, Qt::Key_F1);
        EXPECT_EQ(Find<QListWidget>(form, "lvHelpTopics").currentItem()->text(), "Add-ons");
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
