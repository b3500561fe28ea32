#include "faults/actions.h"

#include "import/import_db_schema.h"
#include "runner/run_add_on.h"
#include "ui/rules/new_key_dialog.h"
#include "ui/rules/properties_list.h"
#include "ui/rules/table_commands.h"
#include "ui/rules/table_dialog.h"
#include "verify/db_check.h"

namespace tessel::test {

namespace {

using host::Answer;
using Around = Surroundings;
using Prepare = std::function<Step(Around&)>;
using Selection = PropertiesList::Selection;

constexpr bool silent = false;
constexpr bool inParts = true;
constexpr bool isSlow = true;

std::shared_ptr<PropertiesList> Listed(Around& around, PropertiesTab tab, std::int32_t table = 1) {
    auto list = std::make_shared<PropertiesList>(around.state);
    list->MarkUserTabChange();
    list->ChangeTab(tab);
    list->Fill(PropertiesList::Table{table, table == 1 ? "Child" : "Parent"});
    return list;
}

// An action of the properties pane.
Prepare OnTab(PropertiesTab tab, bool (*act)(PropertiesList&)) {
    return [=](Around& around) { return [list = Listed(around, tab), act] { return act(*list); }; };
}

Prepare DropFrom(PropertiesTab tab, Selection selection) {
    return [=](Around& around) {
        return [=, list = Listed(around, tab)] {
            const std::size_t before = list->Rows().size();
            list->Drop(selection);
            return list->Rows().size() == before - selection.size();
        };
    };
}

Step EditColumn(Around& around, bool (ColumnDialog::*confirm)()) {
    auto dialog = *ColumnDialog::Open(around.state, around.locale, 1, "");
    dialog.EditComment("edited");
    dialog.SetAllowNulls(true);
    return [=]() mutable { return (dialog.*confirm)(); };
}

Step EditIndex(Around& around) {
    auto dialog = *IndexDialog::Open(around.state, {2, "Ix", 1, "Child", false, "note"});
    dialog.Select(IndexDialog::Available, 0);
    dialog.Add(IndexDialog::Available);
    dialog.SetPrimary(true);
    return [=]() mutable { return dialog.OK(); };
}

Step EditKey(Around& around) {
    auto dialog = *ForeignKeyDialog::Open(around.state, 1, "Restrict", "two");
    dialog.Select(ForeignKeyDialog::Referencing, 2);
    dialog.Select(ForeignKeyDialog::Referenced, 2);
    dialog.Link();
    dialog.SelectDeleteRule(1);
    return [=]() mutable { return dialog.OK(); };
}

Step MakeKey(Around& around) {
    NewKeyDialog dialog(around.state, "Parent", 2, 1);
    EXPECT_EQ(dialog.EditName("Back", 4), 4);
    return [=]() mutable { return dialog.OK(); };
}

Step EditTable(Around& around) {
    auto dialog = *TableDialog::Open(around.state, 1);
    dialog.storageOption = "FAST";
    dialog.comment = "edited";
    return [=]() mutable { return dialog.Write(); };
}

Step PasteCut(Around& around) {
    auto list = Listed(around, PropertiesTab::Columns, 2);
    list->Mark({0, 1}, ColumnClipboard::Mark::Cut);
    list->Fill(PropertiesList::Table{1, "Child"});
    return [=] { return list->Paste().size() == 2; };
}

Step Verify(Around& around) {
    around.workspace.SetProjectSettings("Verified", "");
    return [&state = around.state] {
        DBCheck(state).VerifySchema(true);
        return true;
    };
}

// From a repository-wide database like the project's own.
Step Import(Around& around) {
    around.state.project = around.state.Frontend().ProjectObject();
    return [&state = around.state] {
        const ImportOutcome outcome = modImportDBSchema(state).SyncDBSchema();
        return !outcome.failure && outcome.leftOut.empty();
    };
}

struct NoWatch : RunWatch {
    bool GoesOn() override { return true; }
};

Step RunTool(Around& around, const std::string& progID, OnFailure onFailure) {
    return [=, &around] {
        const AddOnEntry entry{.caption = "Tool", .name = "tool", .progID = progID, .param = ""};
        NoWatch watch;
        Value result;
        const std::int64_t before = around.state.Database().ChangeCount();
        const RunEnd end = RunAddOn(around.state, entry, {around.folder, watch, onFailure}, result);
        return end == RunEnd::Succeeded || around.state.Database().ChangeCount() != before;
    };
}

// The identifier may be that of a row that could not be kept.
Step ImportColumn(Around& around) {
    return [&around] {
        std::string name;
        const std::int32_t column =
            around.workspace.ColumnImport(1, "NEW", 12, 8, 0, around.date, "x", "obj:o1", name);
        return around.state.Database()
            .Select("select * from Columns where ColumnID = " + std::to_string(column))
            .Next();
    };
}

Step MakePrimaryIndex(Around& around) {
    return [&around] { return around.workspace.PrimaryAdd(2) != -1; };
}

Step ChoosePrimaryIndex(Around& around) {
    return [&around] { return around.workspace.TableUpdate(1, "Other", "FAST", "note", 2); };
}

std::vector<Action> All() {
    using enum PropertiesTab;
    return {
        {"new table",
         [](Around& around) {
             return [&state = around.state] { return TableCommands(state).New().has_value(); };
         },
         true,
         {TypedText{"Third"}}},
        {"delete table",
         [](Around& around) {
             return [&state = around.state] { return TableCommands(state).Delete(2, "Parent"); };
         },
         true,
         {Answer::OK, Answer::OK}},
        {"rename table",
         [](Around& around) {
             return [&state = around.state] { return TableCommands(state).Rename(1, "Child", "Kid"); };
         }},
        {"table dialog", EditTable},
        {"column dialog", [](Around& around) { return EditColumn(around, &ColumnDialog::OK); }},
        {"save as default", [](Around& around) { return EditColumn(around, &ColumnDialog::SaveAsDefault); }},
        {"index dialog", EditIndex, true, {Answer::OK}},
        {"foreign-key dialog", EditKey},
        {"new-key dialog", MakeKey},
        {"new column", OnTab(Columns, [](PropertiesList& list) { return list.NewColumn(0).has_value(); })},
        {"new index",
         OnTab(Indexes, [](PropertiesList& list) { return list.NewIndex().has_value(); }),
         true,
         {TypedText{"New"}}},
        {"rename column", OnTab(Columns, [](PropertiesList& list) { return list.Rename(0, "Z"); })},
        {"rename index", OnTab(Indexes, [](PropertiesList& list) { return list.Rename(0, "Z"); })},
        {"rename key", OnTab(Keys, [](PropertiesList& list) { return list.Rename(0, "Z"); })},
        {"drag", OnTab(Columns, [](PropertiesList& list) { return list.MoveColumn(2, 0); })},
        {"drop columns", DropFrom(Columns, {0, 1}), true, {Answer::OK}, inParts},
        {"drop indexes", DropFrom(Indexes, {0, 1}), true, {Answer::OK, Answer::OK}, inParts},
        {"drop key", DropFrom(Keys, {0}), true, {Answer::OK}},
        {"cut and paste", PasteCut, true, {}, inParts},
        {"verification", Verify, silent},
        {"column import", ImportColumn, silent},
        {"primary index", MakePrimaryIndex, silent},
        {"primary index of a table", ChoosePrimaryIndex, silent},
        {"import", Import, silent, {}, inParts},
        {"add-on",
         [](Around& around) { return RunTool(around, "Tool", OnFailure::Drop); },
         true,
         {},
         false,
         isSlow},
        {"add-on that fails",
         [](Around& around) { return RunTool(around, "Fails", OnFailure::Keep); },
         true,
         {},
         false,
         isSlow},
    };
}

}  // namespace

const std::vector<Action>& Actions() {
    static const std::vector<Action> actions = All();
    return actions;
}

}  // namespace tessel::test
