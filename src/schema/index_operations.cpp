#include "schema/action.h"
#include "schema/identifiers.h"
#include "schema/object_keys.h"
#include "schema/project_settings.h"
#include "schema/workspace.h"
#include "tessel/convert.h"

namespace tessel {

std::int32_t Workspace::PrimaryAdd(std::int32_t tabID) {
    db::Transaction add(Db());
    db::TableSet table = Db().OpenTable("Tables");
    table.SetIndex("PrimaryKey");
    if (!table.Seek({tabID}))
        throw db::DatabaseError(ErrorKind::Sql,
                                "There is no table with the TabID " + std::to_string(tabID) + ".");
    const Value primary = table.Get("PrimaryIndexID");
    if (!primary.IsNull()) return ToInt32(primary);

    db::TableSet index = Db().OpenTable("Indices");
    index.AddNew();
    table.Edit();
    index.Set("TabID", tabID);
    index.Set("IndexName", "PrimaryKey");
    index.Set("Unique", true);
    const std::int32_t indexID = ToInt32(index.Get("IndexID"));
    table.Set("PrimaryIndexID", indexID);
    table.Save();
    index.Save();
    RemoveVerifiedMark(Db());
    add.Commit();
    return indexID;
}

std::shared_ptr<Collection> Workspace::PrimaryKeyColumns(std::int32_t tabID) {
    auto columns = std::make_shared<Collection>();
    for (auto row =
             Db().Select("select * from IndexColumns, Tables where Tables.TabId = " + std::to_string(tabID) +
                         " and Tables.PrimaryIndexID = IndexColumns.IndexID order by IndexColumns.Position");
         row.Next();) {
        const std::int32_t columnID = row.Integer("ColumnID");
        // An index may list a column twice; its first place counts.
        if (!columns->HasKey(ColumnKey(columnID))) columns->Add(columnID, ColumnKey(columnID));
    }
    return columns;
}

bool Workspace::IndexMatch(std::int32_t indexID, const Collection& columnIDs) {
    std::size_t indexed = 0;
    for (auto row =
             Db().Select("select ColumnID from IndexColumns where IndexID = " + std::to_string(indexID));
         row.Next(); ++indexed)
        if (!columnIDs.HasKey(ColumnKey(row.Integer("ColumnID")))) return false;
    return indexed == columnIDs.Count();
}

bool Workspace::IndexAdd(std::int32_t tableId, const std::string& indexName, std::int32_t& indexID) {
    return RunTrapped(state_, [&] {
        db::TableSet row = Db().OpenTable("Indices");
        row.AddNew();
        if (!SetNameField(state_, row, "IndexName", indexName)) return false;
        row.Set("TabID", tableId);
        indexID = ToInt32(row.Get("IndexID"));
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
}

bool Workspace::IndexUpdate(std::int32_t indexID, const Value& indexName, const Value& unique,
                            const Value& comment) {
    return RunTrapped(state_, [&] {
        db::TableSet row = Db().OpenTable("Indices");
        row.SetIndex("PrimaryKey");
        if (!row.Seek({indexID})) return false;
        row.Edit();
        if (!indexName.IsMissing() && !SetNameField(state_, row, "IndexName", indexName)) return false;
        if (!unique.IsMissing()) row.Set("Unique", ToBoolean(unique));
        if (!comment.IsMissing()) row.Set("Comment", comment);
        row.Save();
        RemoveVerifiedMark(Db());
        return true;
    });
}

bool Workspace::IndexDrop(std::int32_t indexID) {
    const std::string identifier = std::to_string(indexID);
    return RunTrapped(state_, [&] {
        if (!Db().Select("select TabID from Indices where IndexID = " + identifier).Next()) return false;
        Db().Execute("Delete from IndexColumns where  IndexID=" + identifier);
        if (Db().Execute("Delete from Indices where  IndexID = " + identifier) == 0) return false;
        RemoveVerifiedMark(Db());
        return true;
    });
}

}  // namespace tessel
