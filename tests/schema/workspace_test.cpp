#include "schema/workspace.h"

#include "lines/list_combo.h"
#include "schema/sql_text.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

class WorkspaceCore : public SchemaTest {};
using Strings = std::vector<std::string>;

TEST_F(WorkspaceCore, SettingsReadBackUnchanged) {
    for (const char* value : {"OK", "it's", "a|b||'|'", "x' or '1'='1", "日本語", "line\r\nbreak", "%1;--"}) {
        Ws().SetProjectSettings("A|b's", value);
        EXPECT_EQ(Ws().GetProjectSettings("a|B's"), value);
    }
    Ws().SetProjectSettings("a|b's", "");
    EXPECT_EQ(Ws().GetProjectSettings("A|b's"), "");
    EXPECT_EQ(Rows("select * from ProjectSettings"), Strings{});
}

TEST_F(WorkspaceCore, TypeTexts) {
    struct Case {
        std::int32_t type, precision, scale;
        const char* text;
    };
    const Case cases[] = {{3, 10, 2, "DECIMAL(10,2)"}, {3, 10, 0, "DECIMAL(10)"}, {3, 0, 2, "DECIMAL"},
                          {12, 8, 5, "VARCHAR(8)"},    {4, 9, 9, "INTEGER"},      {99, 1, 1, "<Unknown>"}};
    for (const auto& c : cases) EXPECT_EQ(state.sqlTypes.SqlTypeText(c.type, c.precision, c.scale), c.text);
    EXPECT_THROW((void)state.sqlTypes.SqlTypeIdByName("TEXT"), Error);
    Db().Execute("insert into SQLTypes(TypeID,SourceTypeName) values(50,'Char')");
    EXPECT_THROW(state.sqlTypes.LoadSqlTypes(Db()), Error);
}

TEST_F(WorkspaceCore, FillsATableCombo) {
    ListCombo combo;
    Ws().LoadTableCombo(combo, Missing{});
    for (const char* name : {"b", "A", "C"}) AddTable(name);
    struct Case {
        Value wanted;
        int selected;
    };
    for (const auto& c : {Case{Missing{}, 0}, Case{3, 2}, Case{1, 1}, Case{99, 0}}) {
        Ws().LoadTableCombo(combo, c.wanted);
        ASSERT_EQ(combo.ItemCount(), 3);
        EXPECT_EQ(combo.SelectedIndex(), c.selected);
    }
    EXPECT_EQ(combo.Items()[0].text, "A");
    EXPECT_EQ(combo.Items()[0].data, 2);
}

TEST_F(WorkspaceCore, WithoutAProjectSaysSo) {
    ComponentState bare;
    Workspace workspace(bare);
    std::int32_t id = 0;
    EXPECT_THROW((void)workspace.TableAdd("A", id, Null{}, date, Null{}, Null{}), Error);
    EXPECT_THROW(workspace.RefreshBrowser(), Error);
    EXPECT_EQ(workspace.ProjectDB(), nullptr);
}

TEST(SqlText, TokensAndBlanks) {
    std::string text = "a;b;;c";
    Strings tokens;
    while (!text.empty()) tokens.push_back(NextToken(text));
    EXPECT_EQ(tokens, (Strings{"a", "b", "", "c"}));
    EXPECT_EQ(FlattenText("\t a\r\nb \n"), "a  b");
    EXPECT_EQ(BlankControls("\ta\n"), " a ");
    EXPECT_EQ(NullToText(" 日 "), "日");
    EXPECT_EQ(NullToText(Null{}), "");
    EXPECT_EQ(SqlQuote("a'|"), "a''' & Chr(124) & '");
}

}  // namespace

}  // namespace tessel::test
