#include "platform/text/utf8.h"
#include "schema/action.h"
#include "schema/identifiers.h"
#include "schema/object_keys.h"
#include "schema/project_settings.h"
#include "schema/sql_text.h"
#include "schema/workspace.h"
#include "tessel/convert.h"

namespace tessel {

namespace {

constexpr std::size_t typedNameLength = 50;  // characters
constexpr int newTableHelpContext = 4020000;
constexpr std::string_view lineBreak = "\r\n";

// Readers treat Null and the empty text alike; what is stored is Null.
Value NullWhenEmpty(const Value& value) { return value.IsMissing() || value.IsEmptyText() ? Value() : value; }

// The tables whose keys refer to this one, a line for each key.
std::string ReferencingTables(db::Database& database, std::int32_t tableId) {
    std::string list;
    for (auto row =
             database.Select("select T.TableName from Tables T, ForeignKeys FK where T.TabId = FK.TabId and "
                             "FK.RefTabId = " +
                             std::to_string(tableId));
         row.Next();)
        list.append("    ").append(row.Text("TableName")).append(lineBreak);
    return list;
}

}  // namespace

std::string Workspace::GetFreeTableName(std::string& tableName) {
    db::TableSet tables = Db().OpenTable("Tables");
    tables.SetIndex("TableName");
    return GetFreeName(state_, tableName, "T", [&](const std::string& name) { return tables.Seek({name}); });
}

bool Workspace::TableAdd(const std::string& tableName, std::int32_t& tableId, const Value& repObjId,
                         const DateTime& created, const Value& createdVia, const Value& cvrl) {
    if (tableName.empty()) return false;
    const bool added = RunTrapped(state_, [&] {
        db::TableSet row = Db().OpenTable("Tables");
        row.AddNew();
        if (!SetNameField(state_, row, "TableName", tableName)) return false;
        row.Set("RepObjId", NullWhenEmpty(repObjId));
        row.Set("Created", created);
        row.Set("CreatedVia", createdVia.IsMissing() ? Value() : createdVia);
        row.Set("CVRL", NullWhenEmpty(cvrl));
        row.Set("PrimaryIndexID", Null{});
        tableId = ToInt32(row.Get("TabID"));
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
    if (added)
        RunIgnoringErrors(
            [&] { Window().DrawTable(tableName, tableId, cvrl.IsMissing() ? "" : NullToText(cvrl), ""); });
    return added;
}

bool Workspace::TableAddVerbally(std::string& tableName, std::int32_t& tableId) {
    const text::Texts& texts = *state_.texts;
    std::string proposed = texts.Text(605);
    proposed = GetFreeTableName(proposed);
    const auto typed = state_.questions->Ask({.prompt = texts.Text(532),
                                              .title = state_.Title(),
                                              .text = proposed,
                                              .helpFile = state_.helpFile,
                                              .helpContext = newTableHelpContext});
    if (!typed) return false;
    tableName = text::Left(text::Trim(*typed), typedNameLength);
    if (tableName.empty()) return false;
    if (tessel::SQLID(state_, tableName) != tableName) {
        Complain(texts.Text(534));
        return false;
    }
    if (Db().Select("select * from Tables where TableName='" + SqlQuote(tableName) + "'").Next()) {
        state_.questions->Show({.text = texts.Format(533, {tableName}),
                                .title = state_.Title(),
                                .icon = host::Icon::Exclamation});
        return false;
    }
    if (TableAdd(tableName, tableId, Null{}, Now(), Null{}, Null{})) return true;
    Complain(texts.Format(535, {tableName}));
    return false;
}

bool Workspace::TableDrop(std::int32_t tableId) {
    const std::string identifier = std::to_string(tableId);
    db::Transaction drop(Db());
    Db().Execute(
        "Delete from ForeignKeyColumns fkc where  exists (select ColumnID from Columns c where  c.ColumnID = "
        "fkc.ColumnID and  c.TabID=" +
        identifier + ")");
    Db().Execute("Delete from ForeignKeys  where  TabID = " + identifier + " or RefTabId = " + identifier);
    Db().Execute("Delete from Columns  where  TabID = " + identifier);
    Db().Execute("delete from Tables where TabID = " + identifier);
    Db().Execute("delete from Indices where TabID = " + identifier);
    RemoveVerifiedMark(Db());
    drop.Commit();
    RunIgnoringErrors([&] { Window().RemoveTable(TableKey(tableId)); });
    return true;
}

bool Workspace::DropTableVerbally(std::int32_t tableId, const std::string& tableName) {
    const text::Texts& texts = *state_.texts;
    const auto confirmed = [&](const std::string& question) {
        return state_.questions->Show({.text = question,
                                       .title = state_.Title(),
                                       .icon = host::Icon::Exclamation,
                                       .buttons = host::Buttons::OKCancel}) == host::Answer::OK;
    };
    if (!confirmed(texts.Format(536, {tableName}))) return false;
    const std::string references = ReferencingTables(Db(), tableId);
    if (!references.empty() && !confirmed(texts.Format(537, {std::string(lineBreak) + references})))
        return false;
    try {
        return TableDrop(tableId);
    } catch (const db::DatabaseError& error) {
        state_.questions->Show({.text = texts.Text(538),
                                .title = state_.Title(),
                                .icon = host::Icon::Critical,
                                .detail = error.what()});
        return false;
    }
}

bool Workspace::TableUpdate(std::int32_t tableId, const Value& tableName, const Value& storageOption,
                            const Value& comment, const Value& primaryIndexID) {
    if (tableName.IsMissing() && storageOption.IsMissing() && comment.IsMissing() &&
        primaryIndexID.IsMissing())
        return true;
    std::string drawnName;
    const bool updated = RunTrapped(state_, [&] {
        db::TableSet row = Db().OpenTable("Tables");
        row.SetIndex("PrimaryKey");
        if (!row.Seek({tableId})) return false;
        row.Edit();
        if (!tableName.IsMissing() && !SetNameField(state_, row, "TableName", tableName)) return false;
        drawnName = NullToText(row.Get("TableName"));
        if (!storageOption.IsMissing()) row.Set("StorageOption", NullWhenEmpty(storageOption));
        if (!comment.IsMissing()) row.Set("Comments", NullWhenEmpty(comment));
        if (!primaryIndexID.IsMissing()) row.Set("PrimaryIndexID", primaryIndexID);
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
    if (updated) RunIgnoringErrors([&] { Window().DrawTable(drawnName, tableId, Missing{}, comment); });
    return updated;
}

}  // namespace tessel
