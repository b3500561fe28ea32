#include "ui/rules/properties_list.h"

#include "ui/rules/rules_test.h"

namespace tessel::test {

using enum PropertiesTab;
using host::Answer;
using Marked = ColumnClipboard::Mark;

class PropertiesListRules : public RulesTest {
  protected:
    PropertiesListRules() { list.Fill(child); }

    void Show(PropertiesTab tab, const PropertiesList::Table& table) {
        list.ChangeTab(tab);
        list.Fill(table);
    }
    // The rows as texts parted by '|': key, text, icon, sub-items.
    Strings Shown() {
        Strings shown;
        for (const auto& row : list.Rows()) {
            shown.push_back(row.key + "|" + row.text + "|" + row.icon);
            for (const auto& subItem : row.subItems) shown.back() += "|" + subItem;
        }
        return shown;
    }
    static std::string Joined(const Strings& items) {
        std::string joined;
        for (const auto& item : items) AppendListed(joined, item);
        return joined;
    }
    // The letters of the commands that the selection admits.
    std::string Commands(const PropertiesList::Selection& selection) {
        const auto [create, drop, rename, properties] = list.CommandsFor(selection);
        return std::string(create ? "n" : "") + (drop ? "d" : "") + (rename ? "r" : "") +
               (properties ? "p" : "");
    }
    Strings Stored(const std::string& fields, int tabID) {
        return Rows("select " + fields + " from Columns where TabID=" + std::to_string(tabID) +
                    " order by Position");
    }

    const PropertiesList::Table child{1, "Child"};
    const PropertiesList::Table parent{2, "Parent"};
    PropertiesList list{state};
};

TEST_F(PropertiesListRules, EachTabListsItsRowsUnderItsHeadersAndOffersItsCommands) {
    const std::string keyHeaders = "Key, Columns, References, Referenced Columns, On Delete, Description";
    const struct {
        PropertiesTab tab;
        PropertiesList::Table table;
        std::string headers, rows, commands, locate;
    } cases[] = {{Columns, child, "Column, Type, Description",
                  "c1|A|key|VARCHAR(8)|one, c2|B|notnull|REAL|, c3|C||DATE|", "n ndrp", "(not available)"},
                 {Indexes, child, "Index, Columns, Description",
                  "i2|Ix|index|B, C desc|, i1|PrimaryKey|index1|A|", "n ndrp", "(not available)"},
                 {Keys, parent, keyHeaders, "", "n n", "(not available)"},
                 {Keys, child, keyHeaders, "k1|K|foreign|A, B|Parent|X, Y|Restrict|two", "n ndrp",
                  "Referenced Table 2 Referenced By k1"},
                 {ReferencedBy, parent, "Key, Columns, From, Referenced Columns, On Delete, Description",
                  "k1|K|foreign|A, B|Child|X, Y|Restrict|two", " drp", "Referencing Table 1 Keys k1"}};
    for (const auto& [tab, table, headers, rows, commands, locate] : cases) {
        Show(tab, table);
        EXPECT_EQ(Joined(list.Headers()), headers);
        EXPECT_EQ(Joined(Shown()), rows);
        EXPECT_EQ(Commands({}) + " " + Commands({0}), commands);
        const auto target = list.Locate(0);
        EXPECT_EQ(list.LocateItemFor(0).isEnabled, target.has_value());
        EXPECT_EQ(list.LocateItemFor(0).text + (target ? " " + std::to_string(target->tabID) + " " +
                                                             InfoOf(target->tab).key + " " + target->rowKey
                                                       : ""),
                  locate);
    }
    Db().Execute("update Columns set Position=9 where ColumnID=1");
    Show(ReferencedBy, parent);
    EXPECT_EQ(Shown(), Strings{"k1|K|foreign|B, A|Child|Y, X|Restrict|two"});
    Show(Columns, child);
    EXPECT_EQ(list.Rows()[2].tag + Commands({0, 2}), "obj:o9nd");
    list.Fill(std::nullopt);
    EXPECT_EQ(Joined(Shown()) + Commands({0}), "");
}

TEST_F(PropertiesListRules, WidthsFitTheWidestTextOfEachColumn) {
    const auto measure = [](const std::string& text) { return static_cast<int>(text.size()) * 100; };
    EXPECT_EQ(list.ColumnWidths(list.Rows(), measure), (std::vector<int>{600 + 450, 1000 + 180, 1100 + 180}));
    EXPECT_EQ(FitFirstColumn({"A", "Bcd"}, 0, measure), 1450);
    EXPECT_EQ(FitFirstColumn({std::string(20, 'x')}, 2540, measure), 2450);
    EXPECT_EQ(FitFirstColumn({}, 3000, measure), 2910);
}

TEST_F(PropertiesListRules, ANewColumnHasTheDefaultsAndComesAfterTheSelectedOne) {
    EXPECT_EQ(list.NewColumn(0), "c7");
    EXPECT_EQ(Shown()[1], "c7|NewColumn||CHAR(1)|");
    Db().Execute(
        "insert into ProjectSettings(PropName,PropValue) values ('DefTypeID','3'), ('DefPrec','007'), "
        "('DefScale','2'), ('DefIsNull','False'), ('DefDefault','5')");
    EXPECT_EQ(list.NewColumn(std::nullopt), "c8");
    EXPECT_EQ(Shown()[4], "c8|NewColumn1|notnull|DECIMAL(7,2)|");
    Ws().SetProjectSettings("DefWithDefault", "True");
    EXPECT_EQ(list.NewColumn(3), "c9");
    EXPECT_EQ(Stored("ColumnID,Precision,Scale,DefaultValue", 1),
              (Strings{"1|8|0|-", "7|1|0|-", "2|0|0|-", "3|0|0|-", "9|7|2|5", "8|7|2|-"}));
    EXPECT_FALSE(IsMarked());
    const Strings shown = Shown();
    Ws().SetProjectSettings("DefPrec", "many");
    EXPECT_FALSE(list.NewColumn(0));
    EXPECT_EQ(Told(), Strings{"c Cannot add new column. Don't know why."});
    EXPECT_EQ(Shown(), shown);
}

TEST_F(PropertiesListRules, ANewIndexIsNamedByTheUser) {
    Show(Indexes, child);
    questions->Answers({Answer::Cancel, TypedText{""}, TypedText{"I.x"}, TypedText{"jx"}});
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(list.NewIndex());
    EXPECT_EQ(Told().back(), "c Cannot add index. Illegal or non-unique name.");
    const auto key = list.NewIndex();
    ASSERT_TRUE(key);
    EXPECT_EQ(questions->lastInput.prompt + questions->lastInput.title,
              "Please, enter new index nameNew index for Child");
    EXPECT_EQ(Shown()[1], *key + "|jx|index||");
    EXPECT_EQ(Rows("select TabID from Indices where IndexName='jx'"), Strings{"1"});
}

TEST_F(PropertiesListRules, DroppingAsksAndTellsWhatStays) {
    questions->Answers({Answer::Cancel, Answer::OK});
    list.Drop({0, 2});
    EXPECT_EQ(Shown().size(), 3U);
    Break("delete on Columns when old.ColumnID=1");
    list.Drop({0, 2});
    EXPECT_EQ(Told(),
              (Strings{"w Drop column(s) A,\r\nC?", "w Drop column(s) A,\r\nC?", "- Cannot drop column: A"}));
    EXPECT_EQ(Shown(), (Strings{"c1|A|key|VARCHAR(8)|one", "c2|B|notnull|REAL|"}));
    EXPECT_EQ(Rows("select count(*) from ForeignKeyColumns"), Strings{"2"});
    Mend();

    Show(Indexes, child);
    questions->Answers({Answer::OK, Answer::Cancel, Answer::OK, Answer::OK});
    list.Drop({0, 1});
    EXPECT_EQ(Shown().size(), 2U);
    list.Drop({0, 1});
    EXPECT_EQ(Shown(), Strings{});
    EXPECT_EQ(Told(), (Strings{"w Drop index Ix?", "w Drop index PrimaryKey?", "w Drop index Ix?",
                               "w Drop index PrimaryKey?"}));
    EXPECT_EQ(Rows("select PrimaryIndexID from Tables where TabID=1"), Strings{"-"});

    Show(ReferencedBy, parent);
    questions->Answers({Answer::OK, Answer::OK});
    Break("delete on ForeignKeys");
    list.Drop({0});
    Mend();
    list.Drop({0});
    EXPECT_EQ(Told(), (Strings{"w Drop key K?", "c Cannot drop foreign key.", "w Drop key K?"}));
    EXPECT_EQ(Shown(), Strings{});
    EXPECT_EQ(TakeNotes().back(), "disconnect k1");
}

TEST_F(PropertiesListRules, RenamingInPlaceKeepsTheOldNameWhenRefused) {
    const struct {
        PropertiesTab tab;
        const char *refused, *told, *name;
    } cases[] = {
        {Columns, "B", "c Cannot rename column. Illegal or non-unique name.",
         "select ColumnName from Columns where ColumnID=1"},
        {Indexes, "1", "c Cannot rename index. Illegal or non-unique name.",
         "select IndexName from Indices where IndexID=2"},
        {Keys, "", "c Cannot rename foreign. Illegal or non-unique name.", "select KeyName from ForeignKeys"},
    };
    for (const auto& [tab, refused, told, name] : cases) {
        Show(tab, child);
        Mark();
        EXPECT_FALSE(list.Rename(0, refused));
        EXPECT_EQ(Told(), Strings{told});
        EXPECT_TRUE(list.Rename(0, list.Rows()[0].text) && IsMarked());
        EXPECT_TRUE(list.Rename(0, "Renamed"));
        EXPECT_EQ(list.Rows()[0].text, "Renamed");
        EXPECT_EQ(Rows(name), Strings{"Renamed"});
        EXPECT_FALSE(IsMarked());
    }
}

TEST_F(PropertiesListRules, ADialogsResultIsShownInItsRow) {
    const CommaLocale locale;
    auto column = list.OpenColumn(0, locale);
    ASSERT_TRUE(column && column->IsKey());
    column->EditComment("a\nb");
    list.Renew(*column);
    EXPECT_EQ(Shown()[0], "c1|A|key|VARCHAR(8)|a b");
    EXPECT_FALSE(list.OpenIndex(0) || list.OpenKey(0));

    Show(Indexes, child);
    auto index = list.OpenIndex(0);
    index->SetUnique(true);
    index->EditComment("c\nd");
    list.Renew(*index);
    EXPECT_EQ(Shown()[0], "i2|Ix|index1|B, C desc|c d");
    EXPECT_EQ(list.OpenIndex(0)->Comment(), "c\nd");

    Show(Keys, child);
    auto key = list.OpenKey(0);
    key->Unlink();
    key->SelectDeleteRule(1);
    list.Renew(*key);
    EXPECT_EQ(Shown()[0], "k1|K|foreign|A|Parent|X|Cascade|two");
}

TEST_F(PropertiesListRules, CopiedColumnsStayAndCutOnesMoveIfTheyCan) {
    list.Mark({0}, Marked::Cut);
    list.Mark({1}, Marked::Copied);
    EXPECT_FALSE(list.IsDimmed(0) || list.IsDimmed(1));
    EXPECT_EQ(list.Paste().size() + list.Paste().size(), 2U);
    EXPECT_EQ(Stored("ColumnName", 1), (Strings{"A", "B", "C", "B1", "B2"}));
    list.Mark({0, 1, 2}, Marked::Cut);
    EXPECT_TRUE(list.IsDimmed(0) && list.IsDimmed(1) && !list.IsDimmed(3));
    list.Fill(parent);
    EXPECT_TRUE(list.CanPaste() && !list.IsDimmed(0));
    Break("delete on Columns when old.ColumnID=2");
    const Strings pasted = list.Paste();
    EXPECT_EQ(Told(), Strings{"c Cannot paste column(s): B"});
    EXPECT_EQ(Stored("ColumnName", 1), (Strings{"B", "B1", "B2"}));
    EXPECT_EQ(Stored("ColumnName", 2), (Strings{"X", "Y", "Z", "A", "C"}));
    EXPECT_EQ(pasted, (Strings{list.Rows()[3].key, list.Rows()[4].key}));
    EXPECT_FALSE(IsMarked());
    Mend();
    EXPECT_EQ(list.Paste().size(), 1U);
    EXPECT_EQ(Stored("ColumnName", 1), (Strings{"B1", "B2"}));
    EXPECT_FALSE(list.CanPaste());
}

TEST_F(PropertiesListRules, ADraggedColumnGoesBeforeTheRowThatItIsDroppedOn) {
    AddColumn(1, "D");
    Db().Execute("update Columns set Position=Position*3 where TabID=1");
    list.Fill(child);
    EXPECT_FALSE(list.StartsDrag(-30, 20));
    EXPECT_TRUE(list.StartsDrag(30, -21));
    struct {
        std::size_t row;
        std::optional<std::size_t> target;
        const char* order;
    } const cases[] = {{1, 1, ""},           {1, 2, ""},           {1, {}, ""},         {1, 9, ""},
                       {0, 3, "B, C, A, D"}, {3, 0, "D, B, C, A"}, {2, 1, "D, C, B, A"}};
    for (const auto& [row, target, order] : cases) {
        Mark();
        EXPECT_EQ(list.MoveColumn(row, target), *order != '\0');
        EXPECT_EQ(IsMarked(), *order == '\0');
        if (*order == '\0') continue;
        Strings shown;
        for (const auto& moved : list.Rows()) shown.push_back(moved.text);
        EXPECT_EQ(Joined(shown), order);
    }
    EXPECT_EQ(Stored("ColumnName,Position", 1), (Strings{"D|1", "C|2", "B|3", "A|4"}));

    Db().Execute("delete from Columns where ColumnID=2");
    EXPECT_FALSE(list.MoveColumn(0, 3));
    EXPECT_EQ(Told(), Strings{"c Cannot move column: D"});
    EXPECT_EQ(list.Rows()[0].text, "D");
    EXPECT_EQ(Stored("ColumnName,Position", 1), (Strings{"D|1", "C|2", "A|4"}));
}

}  // namespace tessel::test
