#include "ui/dialogs/frm_create_key.h"

#include <QComboBox>

#include "ui/dialogs/dialog_test.h"

namespace tessel::test {

namespace {

class FrmCreateKeyTest : public DialogTest {
  protected:
    std::int32_t InputKey(std::int32_t refTabID, const std::function<void()>& act) {
        NewKeyDialog rules(state, "Child", 1, refTabID);
        const std::int32_t keyID = Use(
            "frmCreateKey", [&] { return frmCreateKey::InputKey(state, nullptr, rules); }, act);
        handedBack = rules.KeyName() + '|' + std::to_string(rules.RefTableID());
        return keyID;
    }

    std::string handedBack;
};

TEST_F(FrmCreateKeyTest, MakesTheKey) {
    const auto act = [this] {
        EXPECT_EQ(Dialog().windowTitle(), "Create foreign key for Child");
        EXPECT_EQ(In<QComboBox>("cmbTables").currentText(), "Child");
        EXPECT_EQ(Focus(), "txtKeyName");
        EXPECT_EQ(Enabled("cmdOK"), "");
        Type("txtKeyName", "1FK-A");
        Press("txtKeyName", Qt::Key_Home);
        Type("txtKeyName", "A!B");
        EXPECT_EQ(TextOf("txtKeyName"), "ABFK_A");
        EXPECT_EQ(In<QLineEdit>("txtKeyName").cursorPosition(), 2);
        Type("cmbTables", "p");
        Press("txtKeyName", Qt::Key_Return);
    };
    EXPECT_EQ(InputKey(-1, act), 2);
    EXPECT_EQ(handedBack, "ABFK_A|2");
    EXPECT_EQ(Rows("select TabID, RefTabId, KeyName from ForeignKeys where KeyID=2"), Strings{"1|2|ABFK_A"});
}

TEST_F(FrmCreateKeyTest, StaysOpenUntilAKeyCanBeMade) {
    Break("insert on ForeignKeys");
    const auto act = [this] {
        Type("txtKeyName", "FK");
        EXPECT_EQ(Enabled("cmdOK"), "") << "no table is selected";
        Type("cmbTables", "c");
        EXPECT_EQ(Enabled("cmdOK"), "cmdOK");
        Click("cmdOK");
        EXPECT_TRUE(Dialog().isVisible());
    };
    EXPECT_EQ(InputKey(99, act), -1);
    EXPECT_EQ(handedBack, "FK|1");
    EXPECT_EQ(InputKey(99, [] {}), -1);
    EXPECT_EQ(handedBack, "|99");
    EXPECT_EQ(Told(), Strings{"c Cannot create foreign key"});
}

}  // namespace

}  // namespace tessel::test
