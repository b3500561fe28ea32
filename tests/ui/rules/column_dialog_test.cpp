#include "ui/rules/column_dialog.h"

#include <algorithm>

#include "ui/rules/rules_test.h"

namespace tessel::test {

// Opens column 3, C of the table Child, as a DECIMAL(5).
class ColumnDialogRules : public RulesTest {
  protected:
    ColumnDialogRules() { Db().Execute("update Columns set TypeID=3, Precision=5 where ColumnID=3"); }

    ColumnDialog Open(const std::string& iconKey = "") {
        auto dialog = ColumnDialog::Open(state, locale, 3, iconKey);
        dialog->WatchFocus([this](ColumnDialog::Field field) {
            focused = field;
            heardBefore = Told();
        });
        return std::move(*dialog);
    }
    static void Choose(ColumnDialog& dialog, const std::string& type) {
        const auto& names = dialog.TypeNames();
        dialog.SelectType(static_cast<std::size_t>(std::ranges::find(names, type) - names.begin()));
    }
    std::string Stored(
        const std::string& fields = "TypeID,Precision,Scale,IsNullable,DefaultValue,Comments") {
        return Rows("select " + fields + " from Columns where ColumnID=3").at(0);
    }

    CommaLocale locale;
    std::optional<ColumnDialog::Field> focused;
    Strings heardBefore;  // when the focus moved
};

TEST_F(ColumnDialogRules, ShowsAColumnAndRefusesOneThatIsGone) {
    Db().Execute("update Columns set Comments=' note ', DefaultValue='', IsNullable=0, Scale=2");
    const ColumnDialog dialog = Open("key");
    EXPECT_EQ(dialog.Precision() + "," + dialog.Scale() + " " + dialog.Comment(), "5,2 note");
    EXPECT_TRUE(dialog.IsKey() && dialog.WithDefault() && dialog.IsDefaultEnabled());
    EXPECT_FALSE(dialog.AllowNulls() || Open("notnull").IsKey());
    Db().Execute("update Columns set TypeID=99");
    const ColumnDialog untyped = Open();
    EXPECT_FALSE(untyped.Type() || untyped.IsPrecisionEnabled() || untyped.IsScaleEnabled());
    EXPECT_FALSE(ColumnDialog::Open(state, locale, 7, ""));
    EXPECT_EQ(Told(), Strings{"c System error: Illegal ColumnId."});
}

TEST_F(ColumnDialogRules, ATypeDecidesAboutPrecisionAndScale) {
    struct {
        const char *type, *precision, *shown;
    } const cases[] = {{"DECIMAL", "0", "1+ 3+"},
                       {"DECIMAL", "7", "7+ 3+"},
                       {"REAL", "7", "0- 0-"},
                       {"VARCHAR", "0", "1+ 0-"},
                       {"INTEGER", "7", "0- 3+"}};
    for (const auto& [type, precision, shown] : cases) {
        ColumnDialog dialog = Open();
        (void)dialog.EditPrecision(precision, 0);
        EXPECT_EQ(dialog.EditScale("a3", 2), 1);
        Choose(dialog, type);
        EXPECT_EQ(dialog.Precision() + (dialog.IsPrecisionEnabled() ? "+ " : "- ") + dialog.Scale() +
                      (dialog.IsScaleEnabled() ? "+" : "-"),
                  shown)
            << type << precision;
    }
}

TEST_F(ColumnDialogRules, WhatIsNotValidIsToldWithTheFocusOnItsField) {
    using enum ColumnDialog::Field;
    struct {
        const char *type, *precision, *scale, *defaultValue;
        ColumnDialog::Field focus;
        bool messageFirst;
        const char* told;
    } const cases[] = {
        {nullptr, "1", "0", nullptr, Type, true, "i Please, specify column type."},
        {"DECIMAL", "32", "0", nullptr, Precision, true, "i Precision must be not greater than 31"},
        {"CHAR", "99999999999", "0", nullptr, Precision, true, "i Precision must be not greater than 32767"},
        {"DECIMAL", "", "0", nullptr, Precision, true, "i Precision must be greater than zero."},
        {"INTEGER", "0", "10", nullptr, Scale, true, "i Scale must be not greater than 9"},
        {"DECIMAL", "5", "7", nullptr, Precision, false, "i Precision must be greater or equal than scale"},
        {"INTEGER", "0", "0", "x", Default, false, "c Illegal default value of this column type"},
        {"DATE", "0", "0", "", Default, false, "c Illegal default value of this column type"},
    };
    for (const auto& [type, precision, scale, defaultValue, focus, messageFirst, told] : cases) {
        ColumnDialog dialog = Open();
        type ? Choose(dialog, type) : dialog.SelectType(std::nullopt);
        (void)dialog.EditPrecision(precision, 0);
        (void)dialog.EditScale(scale, 0);
        dialog.SetWithDefault(defaultValue != nullptr);
        dialog.EditDefault(defaultValue ? defaultValue : "any");
        for (const bool closes : {true, false}) {
            focused.reset();
            EXPECT_FALSE(closes ? dialog.OK() : dialog.SaveAsDefault());
            EXPECT_EQ(focused, focus) << told;
            EXPECT_EQ(heardBefore, Strings(messageFirst ? 1 : 0, told));
            EXPECT_EQ(Told(), Strings(messageFirst ? 0 : 1, told));
        }
    }
    EXPECT_TRUE(IsMarked());
}

TEST_F(ColumnDialogRules, ADefaultMustConvertToTheTypeInTheUsersLocale) {
    struct {
        const char *type, *accepted, *refused;
    } const cases[] = {{"TINYINT", "32.767,4", "32767,5"},
                       {"SMALLINT", "-32768,5", "-32769"},
                       {"INTEGER", "1,5", "2147483648"},
                       {"NUMERIC", "0,25", "1e39"},
                       {"DECIMAL", "1.000", ""},
                       {"FLOAT", "3e38", "-4e38"},
                       {"REAL", "-1", "one"},
                       {"DOUBLE", "1e300", "1e"},
                       {"DATE", "31.1.2026", "31.2.2026"},
                       {"TIMESTAMP", "31.1.2026", "2"},
                       {"TIME", "31.1.2026", ""},
                       {"VARCHAR", "", nullptr},
                       {"BOOLEAN", "perhaps", nullptr}};
    for (const auto& [type, accepted, refused] : cases) {
        ColumnDialog dialog = Open();
        Choose(dialog, type);
        dialog.SetWithDefault(true);
        dialog.EditDefault(accepted);
        EXPECT_TRUE(dialog.OK()) << type;
        EXPECT_EQ(Stored("DefaultValue"), accepted);
        dialog.EditDefault(refused ? refused : "");
        EXPECT_EQ(dialog.OK(), refused == nullptr) << type;
    }
}

TEST_F(ColumnDialogRules, OKWritesTheColumnAndHandsBackWhatTheListShows) {
    ColumnDialog dialog = Open();
    (void)dialog.EditScale("2", 0);
    dialog.SetAllowNulls(false);
    dialog.EditDefault("kept, not written");
    dialog.EditComment("a\r\nb");
    ASSERT_TRUE(dialog.OK());
    EXPECT_EQ(Stored(), "3|5|2|0|-|a\r\nb");
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(dialog.TypeText() + " " + dialog.IconKey(), "DECIMAL(5,2) notnull");
    dialog.SetAllowNulls(true);
    EXPECT_EQ(dialog.IconKey() + Open("key").IconKey(), "key");
    Break("update on Columns");
    EXPECT_FALSE(dialog.OK());
    EXPECT_EQ(Told(), Strings{"c Cannot change column: C"});
}

TEST_F(ColumnDialogRules, SaveAsDefaultStoresTheFieldsAndLeavesTheColumn) {
    ColumnDialog dialog = Open();
    Choose(dialog, "VARCHAR");
    (void)dialog.EditPrecision("040", 0);
    dialog.EditDefault("text");
    ASSERT_TRUE(dialog.SaveAsDefault());
    const std::string settings = "select PropName, PropValue from ProjectSettings order by rowid";
    const Strings saved = Rows(settings);
    EXPECT_EQ(saved, (Strings{"Verified|OK", "DefTypeID|12", "DefPrec|040", "DefScale|0", "DefIsNull|True",
                              "DefWithDefault|False", "DefDefault|text"}));
    Break("insert on ProjectSettings when new.PropName = 'DefDefault'");
    dialog.SetAllowNulls(false);
    EXPECT_FALSE(dialog.SaveAsDefault());
    EXPECT_EQ(Rows(settings), saved);
    EXPECT_EQ(Told(), Strings{"c Cannot save the defaults for new columns."});
    EXPECT_EQ(Stored(), "3|5|0|1|-|-");
}

}  // namespace tessel::test
