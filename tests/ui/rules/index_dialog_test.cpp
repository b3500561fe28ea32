#include "ui/rules/index_dialog.h"

#include "ui/rules/rules_test.h"

namespace tessel::test {

using host::Answer;
using enum IndexDialog::List;
using enum IndexDialog::Direction;

class IndexDialogRules : public RulesTest {
  protected:
    IndexDialog Open() { return std::move(*IndexDialog::Open(state, {2, "Ix", 1, "Child", false, "note"})); }

    // The rows of a list with their icons, the selected one with a '*'.
    static std::string Shown(const IndexDialog& dialog, IndexDialog::List list) {
        std::string shown;
        for (const auto& row : dialog.Rows(list)) {
            const bool isSelected =
                dialog.Selected(list) && &row == &dialog.Rows(list)[*dialog.Selected(list)];
            AppendListed(shown, (isSelected ? "*" : "") + row.column.name + ":" + row.icon);
        }
        return shown;
    }
    // Both lists, and the buttons that are enabled.
    static std::string Shown(const IndexDialog& dialog) {
        return Shown(dialog, Available) + " | " + Shown(dialog, InIndex) + " | " +
               (dialog.CanAdd(Available) ? "+" : "") + (dialog.CanAdd(InIndex) ? "-" : "") +
               (dialog.CanMove(Up) ? "u" : "") + (dialog.CanMove(Down) ? "d" : "") +
               (dialog.CanSwitchDirection() ? dialog.DirectionCaption() : "");
    }
    Strings Stored() {
        return Rows(
            "select i.Unique, i.Comment, ic.ColumnID, ic.Position, ic.Direction from Indices i, IndexColumns "
            "ic where i.IndexID=2 and ic.IndexID=2 order by ic.Position");
    }
    Strings Nullable() { return Rows("select IsNullable from Columns where TabID=1 order by ColumnID"); }
    std::string Primary() { return Rows("select PrimaryIndexID from Tables where TabID=1")[0]; }
};

TEST_F(IndexDialogRules, EachClickMovesRowsSelectionAndButtons) {
    IndexDialog dialog = Open();
    EXPECT_EQ(Shown(dialog), "A:notnull | B:down, C:up | ");
    const std::function<void()> select = [&] { dialog.Select(InIndex, 0); };
    const std::function<void()> desc = [&] { dialog.SwitchDirection(); };
    const std::function<void()> up = [&] { dialog.Move(Up); };
    const std::function<void()> down = [&] { dialog.Move(Down); };
    const std::function<void()> add = [&] { dialog.Add(Available); };
    const std::function<void()> remove = [&] { dialog.Add(InIndex); };
    const std::function<void()> primary = [&] { dialog.SetPrimary(true); };
    struct {
        const std::function<void()>& click;
        const char* shown;
    } const steps[] = {
        {select, "A:notnull | *B:down, C:up | -dDesc"},    {desc, "A:notnull | *B:up, C:up | -dAsc"},
        {up, "A:notnull | *B:up, C:up | -dAsc"},           {down, "A:notnull | C:up, *B:up | -uAsc"},
        {remove, "A:notnull, *B:notnull | *C:up | +-Asc"}, {add, "*A:notnull | C:up, *B:down | +-uDesc"},
        {add, " | C:up, B:down, *A:down | -uDesc"},        {add, " | C:up, B:down, *A:down | -uDesc"},
        {primary, " | C:down, B:down, *A:down | -u"},      {remove, "*A:notnull | C:down, *B:down | +-u"},
        {remove, "A:notnull, *B:notnull | *C:down | +-"},  {remove, "A:notnull, B:notnull, *C: |  | +"}};
    for (const auto& [click, shown] : steps) {
        click();
        EXPECT_EQ(Shown(dialog), shown);
    }
    EXPECT_EQ(dialog.TypeLabel(Available) + "," + dialog.TypeLabel(InIndex), "DATE,");
}

TEST_F(IndexDialogRules, OKWritesTheIndexAndHandsBackItsText) {
    IndexDialog dialog = Open();
    dialog.Select(Available, 0);
    dialog.Add(Available);
    dialog.EditComment("new");
    ASSERT_TRUE(dialog.OK());
    EXPECT_EQ(dialog.ColumnsText(), "B, C desc, A");
    EXPECT_EQ(Stored(), (Strings{"0|new|2|1|A", "0|new|3|2|D", "0|new|1|3|A"}));
    EXPECT_EQ(Nullable(), (Strings{"0", "0", "1"}));
    EXPECT_EQ(Primary(), "1");
    EXPECT_FALSE(IsMarked());
    for (int i = 0; i < 3; ++i) {
        dialog.Select(InIndex, 0);
        dialog.Add(InIndex);
    }
    ASSERT_TRUE(dialog.OK());
    EXPECT_EQ(Stored(), Strings{});
    EXPECT_EQ(dialog.ColumnsText(), "");
}

TEST_F(IndexDialogRules, BecomingThePrimaryIndexAsksWhenThereIsAnother) {
    IndexDialog dialog = Open();
    dialog.SetPrimary(true);
    questions->Answers({Answer::Cancel, Answer::OK});
    EXPECT_FALSE(dialog.OK());
    EXPECT_EQ(Primary(), "1");
    EXPECT_TRUE(IsMarked());
    EXPECT_TRUE(dialog.OK());
    EXPECT_EQ(Told(), Strings(2, "e The primary index for the table already exists. Change it to this one?"));
    EXPECT_EQ(Primary(), "2");
    EXPECT_TRUE(Open().IsPrimary() && Open().IsUnique() && Open().IsPrimaryEnabled());
    EXPECT_EQ(Nullable(), (Strings{"0", "0", "0"}));
    dialog.SetPrimary(false);
    EXPECT_TRUE(dialog.OK());
    EXPECT_EQ(Primary(), "-");
}

TEST_F(IndexDialogRules, AFailureIsTold) {
    IndexDialog dialog = Open();
    const Strings before = Stored();
    Break("insert on IndexColumns");
    EXPECT_FALSE(dialog.OK());
    EXPECT_EQ(Stored(), before);
    ASSERT_TRUE(Ws().IndexDrop(2));
    EXPECT_FALSE(IndexDialog::Open(state, {2, "Ix", 1, "Child", false, ""}));
    EXPECT_EQ(Told(), (Strings{"c Cannot change index: Ix", "c System error: Illegal IndexID."}));
}

}  // namespace tessel::test
