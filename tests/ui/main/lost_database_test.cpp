#include <QPlainTextEdit>
#include <QPushButton>

#include "support/database_dump.h"
#include "support/unsafe_disk.h"
#include "ui/main/window_test.h"

namespace tessel::test {

using Lines = std::vector<std::string>;

// A window on the table A with the column C, whose database is on a disk that fails.
class LostDatabaseTest : public WindowTest {
  protected:
    LostDatabaseTest() {
        window = &Start();
        disk.BeUnused();
        std::int32_t columnID = -1;
        std::string name = "C";
        EXPECT_TRUE(WorkspaceOf(state)->ColumnAdd(AddTable("A"), name, 4, 0, 0, true, Null{}, Null{},
                                                  DateTime{}, Null{}, Null{}, -1, columnID));
        Browser(*window).setCurrentIndex(Browser(*window).model()->index(0, 0));
        file = files::NativePath(state.databaseFilename);
    }
    ~LostDatabaseTest() override {
        state.window.reset();
        state.database.reset();
    }

    ListView& Properties() { return Find<ListView>(*window, "lvProperties"); }
    Lines Columns() {
        Lines names;
        for (int row = 0; row < Properties().model()->rowCount(); ++row)
            names.push_back(Properties().model()->index(row, 0).data().toString().toStdString());
        return names;
    }
    // The messages that had nothing to choose.
    Lines Told() {
        Lines told;
        for (const auto& asked : questions->TakeAsked())
            if (asked.answer == QueuedAnswer(host::Answer::OK) && asked.buttons == host::Buttons::OK)
                told.push_back(asked.text);
        return told;
    }

    UnsafeDisk disk;
    std::shared_ptr<StrictQuestions> questions = std::static_pointer_cast<StrictQuestions>(state.questions);
    frmMain* window = nullptr;
    std::string file;
};

TEST_F(LostDatabaseTest, ADialogStaysOpenOnAFullDisk) {
    Lines told;
    bool stayed = false;
    const auto edit = [&](QWidget& dialog) {
        Find<QPlainTextEdit>(dialog, "txtComment").insertPlainText("kept");
        disk.FailAt(0, UnsafeDisk::Fault::Full, true);
        Find<QPushButton>(dialog, "cmdOK").click();
        stayed = dialog.isVisible();
        told = Told();
        disk.FailNever();
        Find<QPushButton>(dialog, "cmdOK").click();
    };
    WhenOpen("frmColumn", edit);
    Properties().setCurrentIndex(Properties().model()->index(0, 0));
    Press(Properties(), Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(stayed);
    EXPECT_EQ(told.size(), 1U);
    EXPECT_TRUE(state.Database().Select("select * from Columns where Comments = 'kept'").Next());
    stayed = false;
    WhenOpen("frmTable", edit);
    Press(Browser(*window), Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(stayed);
    EXPECT_EQ(told, Lines{"Cannot change table: A"});
    EXPECT_EQ(Listed(*window), Lines{"*A|kept"});
}

TEST_F(LostDatabaseTest, ChangesOfAnotherEditorShowAfterARefresh) {
    const auto other = db::Database::Open(file);
    other->Execute("insert into Tables (TableName, Created) values ('B', '2026-01-31T10:00:00')");
    other->Execute(
        "insert into Columns (TabID, ColumnName, Position, TypeID, Precision, Scale, IsNullable) values "
        "(1, 'D', 2, 4, 0, 0, 1)");
    WorkspaceOf(state)->RefreshBrowser();
    EXPECT_EQ(Listed(*window), (Lines{"*A|", "B|"}));
    EXPECT_EQ(Columns(), (Lines{"C", "D"}));
    ASSERT_EQ(other->Execute("delete from Tables where TableName = 'A'"), 1);
    WorkspaceOf(state)->RefreshBrowser();
    EXPECT_EQ(Listed(*window), Lines{"B|"});
    EXPECT_EQ(Columns(), Lines{});
}

TEST_F(LostDatabaseTest, WhatWasInAFileThatIsGoneIsSavedElsewhere) {
    std::filesystem::remove(file);
    reported.clear();
    for (const char* item : {"mnuStructureNew", "mnuStructureProperties", "mnuVerifyAll"})
        QTimer::singleShot(0, &Item(*window, item), &QAction::trigger);
    Until([] { return reported.size() == 3; });
    EXPECT_NE(std::exchange(reported, {}).front().find("is no longer there"), std::string::npos);
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(Listed(*window), Lines{"*A|"});

    const auto path = [](const std::string& value) {
        FilledForm form{std::make_shared<Collection>()};
        form.values->Add(value, "FILE");
        return form;
    };
    questions->Answers({path(folder / "none/copy.mdb"), path(folder / "copy.mdb")});
    EXPECT_TRUE(window->close());
    EXPECT_EQ(questions->Left(), 0U);
    EXPECT_NE(questions->lastForm.text.find("is no longer there"), std::string::npos);
    EXPECT_GE(Told().size(), 1U);  // that the first folder is not there
    auto copy = db::Database::Open(folder / "copy.mdb")->Select("select ColumnName from Columns");
    ASSERT_TRUE(copy.Next());
    EXPECT_EQ(copy.Text("ColumnName"), "C");
}

}  // namespace tessel::test
