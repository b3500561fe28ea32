#include "import/table_copier.h"

#include <algorithm>

#include "platform/component/convert.h"
#include "platform/text/utf8.h"
#include "schema/object_date.h"

namespace tessel {

namespace {

constexpr const char* createdViaImport = "DBSchema";
constexpr std::int32_t first = -1;  // the column after which the first one goes

// Where the row came from; Missing in a database that does not say.
Value OriginOf(const db::Query& row) {
    const bool known = std::ranges::any_of(
        row.Fields(), [](const std::string& field) { return text::SameText(field, "CVRL"); });
    return known ? row["CVRL"] : Value(Missing{});
}

void SetOrigin(db::TableSet& target, const Value& origin) {
    if (!origin.IsMissing()) target.Set("CVRL", origin);
}

std::string With(const std::string& sql, std::int32_t identifier) { return sql + std::to_string(identifier); }

}  // namespace

std::optional<std::string> TableCopier::CopyTable(const db::TableSet& source,
                                                  const host::RepositoryObject& object) {
    const std::int32_t sourceID = ToInt32(source.Get("TabID"));
    std::string wanted = ToText(source.Get("TableName"));
    const std::string name = workspace_.GetFreeTableName(wanted);
    std::int32_t tabID = -1;
    if (!workspace_.TableAdd(name, tabID, object.Identifier(), ObjectDate(object), createdViaImport,
                             "obj:" + object.Identifier())) {
        outcome_.leftOut.push_back({wanted, "a table cannot bear this name here"});
        return {};
    }
    newTables_[sourceID] = tabID;
    workspace_.TableUpdate(tabID, Missing{}, source.Get("StorageOption"), source.Get("Comments"), Missing{});
    CopyColumns(sourceID, tabID, name);
    CopyIndexes(sourceID, tabID, source.Get("PrimaryIndexID"));
    return name;
}

void TableCopier::CopyColumns(std::int32_t source, std::int32_t target, const std::string& tableName) {
    std::int32_t after = first;
    for (auto row =
             repository_.Select(With("select * from Columns where TabId = ", source) + " order by Position");
         row.Next();) {
        std::string name = row.Text("ColumnName");
        const Value origin = OriginOf(row);
        std::int32_t columnID = -1;
        if (workspace_.ColumnAdd(target, name, row.Integer("TypeID"), row.Integer("Precision"),
                                 row.Integer("Scale"), row.Boolean("IsNullable"), row["Comments"],
                                 row["DefaultValue"], row["Created"], row["CreatedVia"], origin, after,
                                 columnID)) {
            newColumns_[row.Integer("ColumnId")] = after = columnID;
        } else {
            outcome_.leftOut.push_back({tableName + "." + row.Text("ColumnName"), "the column is refused"});
        }
    }
}

void TableCopier::CopyIndexes(std::int32_t source, std::int32_t target, const Value& primaryIndex) {
    for (auto row =
             repository_.Select(With("select * from Indices where TabId = ", source) + " order by IndexID");
         row.Next();)
        CopyIndex(row, target, primaryIndex == row["IndexID"]);
}

void TableCopier::CopyIndex(const db::Query& index, std::int32_t target, bool isPrimary) {
    db::Transaction copy(project_);
    db::TableSet row = project_.OpenTable("Indices");
    row.AddNew();
    row.Set("TabID", target);
    row.Set("IndexName", index["IndexName"]);
    row.Set("Unique", index.Boolean("Unique"));
    SetOrigin(row, OriginOf(index));
    const std::int32_t indexID = ToInt32(row.Get("IndexID"));
    row.Save();
    if (isPrimary) workspace_.TableUpdate(target, Missing{}, Missing{}, Missing{}, indexID);
    CopyIndexColumns(index.Integer("IndexID"), indexID);
    copy.Commit();
}

void TableCopier::CopyIndexColumns(std::int32_t source, std::int32_t target) {
    db::TableSet row = project_.OpenTable("IndexColumns");
    for (auto column = repository_.Select(With("select * from IndexColumns where IndexID = ", source) +
                                          " order by Position");
         column.Next();) {
        row.AddNew();
        row.Set("IndexID", target);
        row.Set("ColumnId", NewColumn(column.Integer("ColumnId")));
        row.Set("Direction", column["Direction"]);
        row.Set("Position", column["Position"]);
        SetOrigin(row, OriginOf(column));
        row.Save();
    }
}

void TableCopier::CopyForeignKeys() {
    for (auto key = repository_.Select("select * from ForeignKeys order by KeyID"); key.Next();) {
        const auto table = newTables_.find(key.Integer("TabID"));
        const auto refTable = newTables_.find(key.Integer("RefTabId"));
        if (table == newTables_.end() || refTable == newTables_.end()) continue;
        CopyForeignKey(key, table->second, refTable->second);
    }
}

void TableCopier::CopyForeignKey(const db::Query& key, std::int32_t table, std::int32_t refTable) {
    const auto pairs = NewPairs(key.Integer("KeyID"));  // before the window draws a key that cannot be
    db::Transaction copy(project_);
    std::int32_t keyID = -1;
    if (!workspace_.ForeignAdd(table, refTable, key.Text("KeyName"), keyID)) {
        outcome_.leftOut.push_back({key.Text("KeyName"), "a foreign key cannot bear this name here"});
        return;
    }
    workspace_.ForeignUpdate(keyID, Missing{}, key["HowDelete"], OriginOf(key));
    AddForeignKeyColumns(keyID, pairs);
    copy.Commit();
}

std::vector<TableCopier::KeyPair> TableCopier::NewPairs(std::int32_t source) const {
    std::vector<KeyPair> pairs;
    for (auto pair = repository_.Select(With("select * from ForeignKeyColumns where KeyID = ", source));
         pair.Next();)
        pairs.push_back(
            {NewColumn(pair.Integer("ColumnId")), NewColumn(pair.Integer("RefColumnID")), OriginOf(pair)});
    return pairs;
}

void TableCopier::AddForeignKeyColumns(std::int32_t keyID, const std::vector<KeyPair>& pairs) {
    db::TableSet row = project_.OpenTable("ForeignKeyColumns");
    for (const auto& [column, refColumn, origin] : pairs) {
        row.AddNew();
        row.Set("KeyID", keyID);
        row.Set("ColumnId", column);
        row.Set("RefColumnID", refColumn);
        SetOrigin(row, origin);
        row.Save();
    }
}

std::int32_t TableCopier::NewColumn(std::int32_t source) const {
    const auto column = newColumns_.find(source);
    if (column != newColumns_.end()) return column->second;
    throw Error(ErrorKind::Host, "An index or a foreign key of " + repository_.Path() + " uses the column " +
                                     std::to_string(source) + ", which was not imported.");
}

}  // namespace tessel
