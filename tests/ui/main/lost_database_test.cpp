#include <QPlainTextEdit>
#include <QPushButton>

#include "support/unsafe_disk.h"
#include "ui/main/window_test.h"

namespace tessel::test {

// A window on the table A with the column C, whose database is on a disk that fails.
class LostDatabaseTest : public WindowTest {
  protected:
    LostDatabaseTest() {
        window = &Start();
        disk.BeUnused();
        AddColumn(AddTable("A"), "C");
        SelectTable(*window, 0);
        file = files::NativePath(state.databaseFilename);
    }
    ~LostDatabaseTest() override {
        state.window.reset();
        state.database.reset();
    }

    // The messages that had nothing to choose, with their reasons.
    Lines Told() {
        Lines told;
        for (const auto& asked : questions->TakeAsked())
            if (asked.answer == QueuedAnswer(host::Answer::OK) && asked.buttons == host::Buttons::OK)
                told.push_back(asked.text + asked.detail);
        return told;
    }

    UnsafeDisk disk;
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
    auto& properties = Find<ListView>(*window, "lvProperties");
    properties.setCurrentIndex(properties.model()->index(0, 0));
    Press(properties, Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(stayed);
    EXPECT_EQ(told.size(), 1U);
    const std::string reason =
        "The database \"" + file + "\" failed with: database or disk is full; make room";
    EXPECT_NE(told.front().find(reason), std::string::npos) << told.front();
    EXPECT_TRUE(state.Database().Select("select * from Columns where Comments = 'kept'").Next());
    stayed = false;
    WhenOpen("frmTable", edit);
    Press(Browser(*window), Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(stayed);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told.front().starts_with("Cannot change table: A" + reason)) << told.front();
    EXPECT_EQ(Listed(*window), Lines{"*A|kept"});
}

TEST_F(LostDatabaseTest, WhatWasInAFileThatIsGoneIsSavedElsewhere) {
    std::filesystem::remove(file);
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
    Write(folder / "old.mdb", "old");
    questions->Answers({path(folder / "none/copy.mdb"), path("old.mdb"), host::Answer::Cancel,
                        path("Projects/../copy.mdb")});
    EXPECT_TRUE(window->close());
    EXPECT_EQ(questions->Left(), 0U);
    EXPECT_NE(questions->lastForm.text.find("is no longer there"), std::string::npos);
    EXPECT_EQ(ToText(questions->lastForm.fields.front().value), folder / "old.mdb") << "typed before";
    EXPECT_GE(Told().size(), 1U);  // that the first folder is not there
    EXPECT_EQ(Content(folder / "old.mdb"), "old");
    auto copy = db::Database::Open(folder / "copy.mdb")->Select("select ColumnName from Columns");
    ASSERT_TRUE(copy.Next());
    EXPECT_EQ(copy.Text("ColumnName"), "C");
}

}  // namespace tessel::test
