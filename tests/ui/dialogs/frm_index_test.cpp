#include "ui/dialogs/frm_index.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>

#include "ui/dialogs/dialog_test.h"

namespace tessel::test {

namespace {

constexpr const char* buttons = "cmdAdd_0 cmdAdd_1 cmdMove_0 cmdMove_1 cmdDesc chkPrimary";

// Edits the index Ix on B and C descending, while Child has two more columns D and E.
class FrmIndexTest : public DialogTest {
  protected:
    FrmIndexTest() {
        for (const char* name : {"D", "E"}) AddColumn(1, name);
    }

    bool Edit(const std::function<void()>& act) {
        auto rules = IndexDialog::Open(
            state, {.indexID = 2, .indexName = "Ix", .tabID = 1, .tableName = "Child", .comment = "why"});
        return Use(
            "frmIndex", [&] { return frmIndex::Edit(state, nullptr, *rules); }, act);
    }
    [[nodiscard]] std::string Lists() const { return Listed("lvColumns_0") + " | " + Listed("lvColumns_1"); }
    Strings Stored() {
        return Rows(
            "select ColumnID, Position, Direction from IndexColumns where IndexID=2 order by Position");
    }
};

TEST_F(FrmIndexTest, IsFilledByKeyboard) {
    EXPECT_TRUE(Edit([this] {
        EXPECT_EQ(Dialog().windowTitle(), "Index Ix - Child");
        EXPECT_EQ(Lists() + " | " + Focus() + Enabled(buttons), "A, D, E | B, C | lvColumns_0");
        Type("lvColumns_0", "a");
        EXPECT_EQ(In<QLabel>("lblType_0").text(), "VARCHAR(8)");
        EXPECT_EQ(Enabled(buttons), "cmdAdd_0");
        Press("lvColumns_0", Qt::Key_Return);
        EXPECT_EQ(Lists(), "*D, E | B, C, *A");
        EXPECT_EQ(Enabled(buttons), "cmdAdd_0 cmdAdd_1 cmdMove_0 cmdDesc");
        Press("lvColumns_0", Qt::Key_Insert);
        EXPECT_EQ(In<QLabel>("lblType_1").text(), "INTEGER");
        Press("lvColumns_1", Qt::Key_Up, Qt::ControlModifier);
        EXPECT_EQ(Lists(), "*E | B, C, *D, A");
        Press("lvColumns_1", Qt::Key_Home);
        Press("lvColumns_1", Qt::Key_Delete);
        EXPECT_EQ(In<QAbstractButton>("cmdDesc").text(), "Asc");
        Press("lvColumns_1", Qt::Key_Down, Qt::ControlModifier);
        EXPECT_EQ(Lists(), "E, *B | D, *C, A");
        Press("lvColumns_1", Qt::Key_End);
        Press("cmdDesc", Qt::Key_Space);
        EXPECT_EQ(In<QPlainTextEdit>("txtComment").toPlainText(), "why");
        Click("cmdOK");
    }));
    EXPECT_EQ(Stored(), (Strings{"7|1|A", "3|2|D", "1|3|D"}));
    EXPECT_EQ(Rows("select Comment from Indices where IndexID=2"), Strings{"why"});
}

TEST_F(FrmIndexTest, IsFilledByMouse) {
    questions->Answers({host::Answer::OK});
    EXPECT_TRUE(Edit([this] {
        ClickRow("lvColumns_0", 2, true);
        EXPECT_EQ(Lists(), "A, *D | B, C, *E");
        for (const char* button : {"cmdMove_0", "cmdMove_0", "cmdMove_1", "cmdDesc"}) Click(button);
        EXPECT_EQ(Lists(), "A, *D | B, *E, C");
        ClickRow("lvColumns_1", 0);
        Click("cmdAdd_1");
        EXPECT_EQ(Lists(), "A, D, *B | *E, C");
        Click("cmdAdd_0");
        Click("chkUnique");
        EXPECT_EQ(Enabled(buttons), "cmdAdd_0 cmdAdd_1 cmdMove_0 cmdDesc chkPrimary");
        Click("chkPrimary");
        EXPECT_EQ(Enabled(buttons), "cmdAdd_0 cmdAdd_1 cmdMove_0 chkPrimary");
        Click("chkUnique");
        EXPECT_FALSE(In<QCheckBox>("chkPrimary").isChecked());
        EXPECT_EQ(Enabled("chkPrimary"), "");
        Click("chkUnique");
        Click("chkPrimary");
        Click("cmdOK");
    }));
    EXPECT_EQ(Stored(), (Strings{"8|1|A", "3|2|A", "2|3|A"}));
    EXPECT_EQ(Rows("select Unique, PrimaryIndexID from Indices, Tables where IndexID=2 and Tables.TabID=1"),
              Strings{"1|2"});
}

}  // namespace

}  // namespace tessel::test
