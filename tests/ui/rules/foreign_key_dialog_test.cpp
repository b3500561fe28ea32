#include "ui/rules/foreign_key_dialog.h"

#include "ui/rules/rules_test.h"

namespace tessel::test {

using enum ForeignKeyDialog::List;

class ForeignKeyDialogRules : public RulesTest {
  protected:
    ForeignKeyDialog Open(const char* rule = "Restrict") {
        return std::move(*ForeignKeyDialog::Open(state, 1, rule, "two"));
    }

    // The rows of a list: '*' selected, '!' bold, '~' red, the icon, the link.
    static std::string Shown(const ForeignKeyDialog& dialog, ForeignKeyDialog::List list) {
        std::string shown;
        for (const auto& row : dialog.Rows(list)) {
            const bool isSelected =
                dialog.Selected(list) && &row == &dialog.Rows(list)[*dialog.Selected(list)];
            AppendListed(shown, (isSelected ? "*" : "") + row.column.name + (row.isBold ? "!" : "") +
                                    (row.isRed ? "~" : "") + (row.icon.empty() ? "" : ":" + row.icon) +
                                    (row.link == 0 ? "" : ">" + std::to_string(row.link)));
        }
        return shown;
    }
    static std::string Left(const ForeignKeyDialog& dialog) {
        return Shown(dialog, Referencing) + (dialog.CanLink() ? " l" : "") + (dialog.CanUnlink() ? " u" : "");
    }
    Strings Pairs() { return Rows("select ColumnID, RefColumnID from ForeignKeyColumns where KeyID=1"); }
    std::string Key() { return Rows("select HowDelete, Comment from ForeignKeys").at(0); }
};

TEST_F(ForeignKeyDialogRules, OpensWithLinksMarksAndTheIndexThatMatches) {
    const ForeignKeyDialog dialog = Open();
    EXPECT_EQ(Left(dialog), "A!:notnull>4, *B!:notnull>5, C u");
    EXPECT_EQ(Shown(dialog, Referenced), "X!:key, Y!:key, Z!");
    EXPECT_EQ(dialog.IndexNames(), (Strings{"U1", "U2"}));
    EXPECT_EQ(dialog.Index(), 0U);
    EXPECT_EQ(dialog.DeleteRule(), 0U);
    Db().Execute("insert into ForeignKeyColumns(KeyID,ColumnID,RefColumnID) values(1,3,99)");
    const ForeignKeyDialog dangling = Open();
    EXPECT_EQ(Left(dangling), "A!:notnull>4, *B!:notnull>5, C!~>99 u");
    EXPECT_EQ(dangling.Index(), std::nullopt);
    EXPECT_EQ(dangling.Links(), (std::vector<RowLink>{{1, 1}, {2, 2}, {3, 0}}));
}

TEST_F(ForeignKeyDialogRules, LinkingMovesLinksAndMarks) {
    ForeignKeyDialog dialog = Open();
    dialog.Select(Referencing, 2);
    EXPECT_EQ(Left(dialog), "A!:notnull>4, B!:notnull>5, *C");
    dialog.Select(Referenced, 2);
    dialog.Link();
    EXPECT_EQ(Left(dialog), "A!:notnull>4, B!:notnull>5, *C!>6 l u");
    dialog.Select(Referenced, 1);
    for (int i = 0; i < 2; ++i) {
        dialog.Link();
        EXPECT_EQ(Left(dialog), "A!:notnull>4, B:notnull, *C!~>5 l u");
    }
    dialog.Unlink();
    EXPECT_EQ(Left(dialog), "A!:notnull>4, B:notnull, *C l");
    dialog.SelectIndex(1);
    EXPECT_EQ(Shown(dialog, Referenced), "X!, *Y!, Z!:key");
    dialog.SelectIndex(std::nullopt);
    EXPECT_EQ(Shown(dialog, Referenced), "X!, *Y!, Z!");
}

TEST_F(ForeignKeyDialogRules, OKWritesThePairsAndTheKeyOnlyWhereItChanged) {
    ForeignKeyDialog dialog = Open();
    dialog.Unlink();
    dialog.Select(Referencing, 2);
    dialog.Select(Referenced, 2);
    dialog.Link();
    Break("update on ForeignKeys");
    ASSERT_TRUE(dialog.OK());
    Mend();
    EXPECT_EQ(Pairs(), (Strings{"1|4", "3|6"}));
    EXPECT_EQ(dialog.ColumnsText() + " > " + dialog.RefColumnsText(), "A, C > X, Z");
    EXPECT_FALSE(IsMarked());
    dialog.SelectDeleteRule(1);
    dialog.EditComment("new");
    ASSERT_TRUE(dialog.OK());
    EXPECT_EQ(Key() + dialog.OnDeleteText(), "C|newCascade");
    ForeignKeyDialog cascading = Open("Cascade");
    cascading.SelectDeleteRule(0);
    ASSERT_TRUE(cascading.OK());
    EXPECT_EQ(Key(), "R|two");
}

TEST_F(ForeignKeyDialogRules, AFailureIsTold) {
    ForeignKeyDialog dialog = Open();
    ASSERT_TRUE(Ws().ForeignDrop(1));
    EXPECT_FALSE(dialog.OK());
    EXPECT_EQ(Pairs(), Strings{});
    EXPECT_FALSE(ForeignKeyDialog::Open(state, 1, "Restrict", ""));
    EXPECT_EQ(Told(), (Strings{"c Cannot change foreign key: K", "c System error: Illegal KeyID."}));
}

TEST(ConnectingLinesRules, StandAtTheRowPitchAndFollowTheScroll) {
    // Five rows of the left list are in view: (1600 - 60) / 255 - 1.
    const ListPlace left{.left = 100, .top = 1000, .width = 2000, .height = 1600, .firstVisible = 3};
    const ListPlace right{.left = 4000, .top = 1200, .width = 2000, .height = 1600, .firstVisible = 2};
    const auto lines = ConnectingLines(left, right, 240, {{3, 2}, {7, 1}, {8, 9}, {2, 2}, {4, 0}});
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(
        lines[0],
        (ConnectingLine{Line{{2100, 1390}, {2220, 1390}}, Line{{2220, 1390}, {3760, 1590}}, {{3760, 1515}}}));
    EXPECT_EQ(
        lines[1],
        (ConnectingLine{Line{{2100, 2410}, {2220, 2410}}, Line{{2220, 2410}, {3760, 1335}}, {{3760, 1260}}}));
    EXPECT_FALSE(lines[2].stub || lines[3].stub);
    EXPECT_EQ(lines[3].segment, (Line{{2220, 1135}, {3760, 1590}}));
    EXPECT_TRUE(lines[4].stub);
    EXPECT_FALSE(lines[4].segment || lines[4].arrow);
}

}  // namespace tessel::test
