#include "ui/main/browser_pane.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>

#include "ui/main/window_test.h"

namespace tessel::test {

class BrowserPaneTest : public WindowTest {
  protected:
    BrowserPaneTest() {
        Start();
        for (const char* name : {"Alpha", "Beta", "Gamma"}) AddTable(name);
        window = &Reopen();
    }

    ListView& List() { return Find<ListView>(*window, "lvBrowser"); }
    // The editor of a label; none once it is closed.
    QLineEdit* Editor() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return List().viewport()->findChild<QLineEdit*>();
    }
    void EditName(const QString& name) {
        List().edit(List().currentIndex());
        Editor()->setText(name);
        QTest::keyClick(Editor(), Qt::Key_Return);
    }
    Lines Messages() {
        Lines texts;
        for (const auto& asked : questions->TakeAsked()) texts.push_back(asked.text);
        return texts;
    }

    frmMain* window = nullptr;
};

TEST_F(BrowserPaneTest, KeysActWhenTheyAreReleased) {
    questions->Answers({TypedText{"Delta"}});
    QTest::keyPress(&List(), Qt::Key_Insert);
    EXPECT_EQ(questions->Left(), 1U);
    QTest::keyRelease(&List(), Qt::Key_Insert);
    EXPECT_EQ(Listed(*window), (Lines{"Alpha|", "Beta|", "*Delta|", "Gamma|"}));
    questions->Answers({TypedText{"Omega"}});
    Press(List(), Qt::Key_F2);
    EXPECT_EQ(questions->lastInput.title, "Rename table: Delta");
    EXPECT_EQ(questions->lastInput.helpContext, 4020010);
    EXPECT_EQ(Listed(*window), (Lines{"Alpha|", "Beta|", "Gamma|", "*Omega|"}));
    questions->Answers({host::Answer::OK});
    Press(List(), Qt::Key_Delete);
    EXPECT_EQ(List().model()->rowCount(), 3);
    Press(List(), Qt::Key_B);
    EXPECT_EQ(Listed(*window), (Lines{"Alpha|", "*Beta|", "Gamma|"})) << "typing finds a table";
    EXPECT_EQ(frontend->log->activities.back().action, "Drop table Omega");
}

TEST_F(BrowserPaneTest, RenamingToTheSameNameDoesNothing) {
    questions->Answers({TypedText{"Alpha"}});
    Choose(*window, "mnuStructureRename");
    EditName("Alpha");
    Until([&] { return !Editor(); });
    EXPECT_EQ(Messages().size(), 1U) << "the prompt alone";
    EXPECT_TRUE(frontend->log->activities.empty() ||
                frontend->log->activities.back().action.find("Rename") == std::string::npos);
}

TEST_F(BrowserPaneTest, ARefusedNameStartsTheEditAgain) {
    for (const char* name : {"beta", " blank", ""}) {
        EditName(name);
        Lines messages;
        Until([&] { return !(messages = Messages()).empty(); });
        EXPECT_EQ(messages, (Lines{"Cannot rename table. Illegal or non-unique name."})) << name;
        Until([&] { return Editor() && Editor()->text() == "Alpha"; });
        QTest::keyClick(Editor(), Qt::Key_Escape);
        Until([&] { return !Editor(); });
    }
    EXPECT_EQ(Listed(*window), (Lines{"*Alpha|", "Beta|", "Gamma|"}));
    EditName("Zeta");
    Until([&] { return Listed(*window).back() == "*Zeta|"; });
    List().edit(List().currentIndex());
    Editor()->setText("Lost");
    window = &Reopen();
    EXPECT_EQ(Listed(*window).back(), "Zeta|") << "closing cancels an edit";
}

TEST_F(BrowserPaneTest, TheContextMenuOffersPropertiesFirst) {
    auto& menu = Find<QMenu>(*window, "mnuStructure");
    QTest::mousePress(List().viewport(), Qt::RightButton);
    EXPECT_FALSE(menu.isVisible());
    QTest::mouseRelease(List().viewport(), Qt::RightButton);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.defaultAction(), &Item(*window, "mnuStructureProperties"));
    menu.close();
    Press(List(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    EXPECT_FALSE(menu.defaultAction());
}

TEST_F(BrowserPaneTest, TheTableDialogWritesWhatIsConfirmed) {
    ASSERT_TRUE(WorkspaceOf(state)->TableUpdate(1, Missing{}, " space1 ", "first\r\nsecond", Missing{}));
    const auto edit = [&](const char* button, const QString& comment) {
        WhenOpen("frmTable", [=](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Table Properties");
            EXPECT_EQ(Find<QLabel>(dialog, "lblTableName").text(), "Alpha");
            EXPECT_EQ(Find<QLabel>(dialog, "lblLegacyName").text(), "(not available)");
            EXPECT_EQ(Find<QLineEdit>(dialog, "txtStorage").text(), "space1");
            if (!comment.isNull()) {
                Find<QLineEdit>(dialog, "txtStorage").setText("space2");
                auto& box = Find<QPlainTextEdit>(dialog, "txtComment");
                box.selectAll();
                box.insertPlainText(comment);
            }
            Find<QPushButton>(dialog, button).click();
        });
        Press(List(), Qt::Key_Return, Qt::AltModifier);
    };
    const auto stored = [&] {
        auto row = state.Database().Select("select * from Tables where TabID = 1");
        EXPECT_TRUE(row.Next());
        return row.Text("StorageOption") + "|" + row.Text("Comments");
    };
    edit("cmdCancel", "dropped");
    EXPECT_EQ(stored(), " space1 |first\r\nsecond");
    edit("cmdOK", QString());
    EXPECT_EQ(stored(), "space1|first\r\nsecond") << "a comment that was not edited stays as it was";
    edit("cmdOK", " new\ntext");
    EXPECT_EQ(stored(), "space2| new\r\ntext");
    EXPECT_EQ(Listed(*window).front(), "*Alpha|new  text");
    state.Database().Execute("delete from Tables where TabID = 1");
    Press(List(), Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(Messages(), (Lines{"System error: Illegal TableId."}));
}

}  // namespace tessel::test
