#include "ui/rules/new_key_dialog.h"

#include "ui/rules/rules_test.h"

namespace tessel::test {

using NewKeyDialogRules = RulesTest;

TEST_F(NewKeyDialogRules, PreselectsATableAndFiltersTheName) {
    struct {
        std::int32_t refTabID;
        std::optional<std::size_t> table;
        std::int32_t handedBack;
    } const cases[] = {{-1, 0, 1}, {2, 1, 2}, {7, {}, 7}};
    for (const auto& [refTabID, table, handedBack] : cases) {
        NewKeyDialog dialog(state, "Parent", 2, refTabID);
        EXPECT_EQ(dialog.Caption(), "Create foreign key for Parent");
        EXPECT_EQ(dialog.TableNames(), (Strings{"Child", "Parent"}));
        EXPECT_EQ(dialog.Table(), table);
        EXPECT_EQ(dialog.RefTableID(), handedBack);
        EXPECT_FALSE(dialog.CanOK());
        EXPECT_EQ(dialog.EditName("1F.K", 4), 2);
        EXPECT_EQ(dialog.KeyName(), "FK");
        EXPECT_EQ(dialog.CanOK(), table.has_value());
    }
}

TEST_F(NewKeyDialogRules, OKMakesTheKeyOrSaysThatItCannot) {
    NewKeyDialog dialog(state, "Parent", 2, -1);
    (void)dialog.EditName(std::string(65, 'x'), 0);
    EXPECT_FALSE(dialog.OK());
    EXPECT_EQ(dialog.KeyID(), -1);
    EXPECT_EQ(Told(), Strings{"c Cannot create foreign key"});
    (void)dialog.EditName("Self", 4);
    dialog.SelectTable(1);
    ASSERT_TRUE(dialog.OK());
    const std::string keyID = std::to_string(dialog.KeyID());
    EXPECT_EQ(Rows("select KeyID,TabID,RefTabId from ForeignKeys where KeyName='Self'"),
              Strings{keyID + "|2|2"});
    EXPECT_EQ(TakeNotes().back(), "connect k" + keyID + " t2>t2 Self");
}

}  // namespace tessel::test
