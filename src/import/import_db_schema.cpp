#include "import/import_db_schema.h"

#include <unordered_set>

#include "platform/files/file_service.h"
#include "schema/action.h"
#include "schema/object_date.h"
#include "schema/sql_text.h"
#include "tessel/convert.h"

namespace tessel {

namespace {

constexpr const char* tableType = "TABLE";

bool IsView(const host::RepositoryObject& object) {
    const std::string view = NullToText(object.Attribute("IsView"));
    try {
        return !view.empty() && ToBoolean(view);
    } catch (const Error&) {
        throw Error(ErrorKind::Host, "The object " + object.Identifier() + " of the repository says \"" +
                                         view + "\" for IsView; write True or False.");
    }
}

}  // namespace

ImportOutcome modImportDBSchema::SyncDBSchema() {
    ImportOutcome outcome;
    try {
        Run(outcome);
    } catch (const std::exception& error) {
        outcome.failure = error.what();
        // What was undone may have been shown already.
        RunIgnoringErrors([&] { WorkspaceOf(state_)->RefreshBrowser(); });
        state_.questions->Show({.text = state_.texts->Text(1220),
                                .title = state_.Title(),
                                .icon = host::Icon::Exclamation,
                                .detail = error.what()});
    }
    return outcome;
}

std::string modImportDBSchema::RepositoryFilename() const {
    return state_.Frontend().GetCorvaneName(host::name_item::workspaceFolder) + "\\DBSchema.mdb";
}

bool modImportDBSchema::HasRepository() const { return files::FileExists(RepositoryFilename()); }

void modImportDBSchema::Run(ImportOutcome& outcome) {
    tableOfObject_.clear();
    matched_.clear();
    // Before the objects are looked at, so that they are no newer than the tables that are copied.
    const auto repository = db::Database::Open(RepositoryFilename())->Snapshot();
    Match(*repository, outcome);
    RunKept(*repository, outcome);
}

void modImportDBSchema::Match(db::Database& repository, ImportOutcome& outcome) {
    db::TableSet tables = repository.OpenTable("Tables");
    tables.SetIndex("TableName");
    std::unordered_set<std::int32_t> taken;
    for (const auto& object :
         state_.Frontend().RepositoryOf()->PrepareCollection(*state_.project, tableType)) {
        const Value name = object->Attribute("Name");
        if (IsView(*object)) continue;
        if (!tables.Seek({name.IsNull() ? Value("") : name})) {
            if (!NullToText(name).empty())  // an object whose table is gone for good has none
                outcome.leftOut.push_back(
                    {ToText(name), "the repository's database has no table of this name"});
            continue;
        }
        const std::int32_t tabID = ToInt32(tables.Get("TabID"));
        if (!taken.insert(tabID).second) {
            outcome.leftOut.push_back(
                {ToText(name), "the object " + object->Identifier() + " bears the name of one before it"});
            continue;
        }
        tableOfObject_.emplace(object->Identifier(), tabID);
        matched_.push_back({tabID, object});
    }
    outcome.matched = matched_.size();
}

void modImportDBSchema::RunKept(db::Database& repository, ImportOutcome& outcome) {
    db::Transaction run(state_.Database());
    const auto keep = [&] {
        try {
            run.Commit();
        } catch (const db::DatabaseError&) {
            outcome.dropped.clear();
            outcome.added.clear();
            throw;
        }
    };
    try {
        Sync(repository, outcome);
    } catch (...) {
        keep();
        throw;
    }
    keep();
}

void modImportDBSchema::Sync(db::Database& repository, ImportOutcome& outcome) {
    const auto workspace = WorkspaceOf(state_);
    workspace->StartProgress(state_.texts->Text(215), static_cast<std::int32_t>(matched_.size()));
    if (IsUpToDate()) return;
    Drop(outcome);
    TableCopier copier(*workspace, state_.Database(), repository, outcome);
    AddTables(repository, copier);
    copier.CopyForeignKeys();
}

std::vector<modImportDBSchema::LinkedTable> modImportDBSchema::LinkedTables() const {
    std::vector<LinkedTable> linked;
    const auto objects = state_.Frontend().RepositoryOf();
    for (auto row = state_.Database().Select(
             "select TabId, TableName, RepObjID, Created from Tables where RepObjID <> null and RepObjId <> "
             "''");
         row.Next();) {
        std::string object = row.Text("RepObjID");
        if (objects->TypeNameOf(object) != tableType) continue;
        linked.push_back({row.Integer("TabId"), row.Text("TableName"), std::move(object), row["Created"]});
    }
    return linked;
}

bool modImportDBSchema::IsUpToDate() const {
    const auto linked = LinkedTables();
    if (linked.size() != matched_.size()) return false;
    for (const auto& table : linked)
        if (IsTableOutdated(table.object, table.created)) return false;
    return true;
}

bool modImportDBSchema::IsTableOutdated(const std::string& repObjId, const Value& created) const {
    try {
        const auto object = state_.Frontend().RepositoryOf()->ObjectById(repObjId);
        if (object->TypeName() != tableType) return false;
        if (!tableOfObject_.contains(repObjId)) return true;
        return (created.IsNull() ? DateTime{} : ToDate(created)) < ObjectDate(*object);
    } catch (const Error&) {
        return false;
    }
}

void modImportDBSchema::Drop(ImportOutcome& outcome) {
    const auto linked = LinkedTables();
    db::Transaction drop(state_.Database());
    // TableDrop leaves the parts of indexes, and of the keys that refer to the table. It looks through the
    // column pairs of all keys for those of its table; thousands of drops are quick only when the pairs are
    // gone before.
    for (const auto& table : linked) {
        const std::string identifier = std::to_string(table.tabID);
        state_.Database().Execute(
            "delete from ForeignKeyColumns where KeyID in (select KeyID from ForeignKeys where TabID = " +
            identifier + " or RefTabId = " + identifier + ")");
        state_.Database().Execute(
            "delete from IndexColumns where IndexID in (select IndexID from Indices where TabID = " +
            identifier + ")");
    }
    std::vector<std::string> dropped;
    for (const auto& table : linked)
        if (WorkspaceOf(state_)->TableDrop(table.tabID)) dropped.push_back(table.name);
    drop.Commit();
    outcome.dropped = std::move(dropped);
}

void modImportDBSchema::AddTables(db::Database& repository, TableCopier& copier) {
    db::TableSet tables = repository.OpenTable("Tables");
    tables.SetIndex("PrimaryKey");
    for (const auto& match : matched_) {
        if (!tables.Seek({match.tabID}))
            throw Error(ErrorKind::Host, "The table of the object " + match.object->Identifier() +
                                             " is gone from " + repository.Path() + "; import again.");
        if (copier.CopyTable(tables, *match.object)) WorkspaceOf(state_)->FinishStep(1);
    }
}

}  // namespace tessel
