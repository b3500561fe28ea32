#include "import/table_copier.h"

#include <algorithm>

#include "platform/text/utf8.h"
#include "schema/object_date.h"
#include "tessel/convert.h"

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

bool TableCopier::CopyTable(const db::TableSet& source, const host::RepositoryObject& object) {
    const std::int32_t sourceID = ToInt32(source.Get("TabID"));
    std::string wanted = ToText(source.Get("TableName"));
    const std::string name = workspace_.GetFreeTableName(wanted);
    std::int32_t tabID = -1;
    if (!workspace_.TableAdd(name, tabID, object.Identifier(), ObjectDate(object), createdViaImport,
                             "obj:" + object.Identifier())) {
        outcome_.leftOut.push_back({wanted, "a table cannot bear this name here"});
        return false;
    }
    if (name != ToText(source.Get("TableName")))
        outcome_.renamed.push_back({ToText(source.Get("TableName")), name});
    outcome_.added.push_back(name);
    newTables_[sourceID] = tabID;
    if (!workspace_.TableUpdate(tabID, Missing{}, source.Get("StorageOption"), source.Get("Comments"),
                                Missing{}))
        outcome_.leftOut.push_back({"the storage option and the comment of " + name, "they are refused"});
    CopyColumns(sourceID, {tabID, name});
    CopyIndexes(sourceID, {tabID, name}, source.Get("PrimaryIndexID"));
    return true;
}

void TableCopier::CopyColumns(std::int32_t source, const NewTable& target) {
    std::int32_t after = first;
    for (auto row =
             repository_.Select(With("select * from Columns where TabId = ", source) + " order by Position");
         row.Next();) {
        const std::string given = row.Text("ColumnName");
        std::string name = given;
        const Value origin = OriginOf(row);
        std::int32_t columnID = -1;
        if (workspace_.ColumnAdd(target.tabID, name, row.Integer("TypeID"), row.Integer("Precision"),
                                 row.Integer("Scale"), row.Boolean("IsNullable"), row["Comments"],
                                 row["DefaultValue"], row["Created"], row["CreatedVia"], origin, after,
                                 columnID)) {
            newColumns_[row.Integer("ColumnId")] = after = columnID;
            if (name != given) outcome_.renamed.push_back({target.name + "." + given, name});
        } else {
            newColumns_[row.Integer("ColumnId")] = std::nullopt;
            outcome_.leftOut.push_back({target.name + "." + given, "the column is refused"});
        }
    }
}

void TableCopier::CopyIndexes(std::int32_t source, const NewTable& target, const Value& primaryIndex) {
    for (auto row =
             repository_.Select(With("select * from Indices where TabId = ", source) + " order by IndexID");
         row.Next();)
        CopyIndex(row, target, primaryIndex == row["IndexID"]);
}

void TableCopier::CopyIndex(const db::Query& index, const NewTable& target, bool isPrimary) {
    const auto columns = NewIndexColumns(index.Integer("IndexID"));
    if (!columns) {
        outcome_.leftOut.push_back(
            {target.name + "." + index.Text("IndexName"), "one of its columns is refused"});
        return;
    }
    db::Transaction copy(project_);
    db::TableSet row = project_.OpenTable("Indices");
    row.AddNew();
    row.Set("TabID", target.tabID);
    row.Set("IndexName", index["IndexName"]);
    row.Set("Unique", index.Boolean("Unique"));
    SetOrigin(row, OriginOf(index));
    const std::int32_t indexID = ToInt32(row.Get("IndexID"));
    row.Save();
    if (isPrimary && !workspace_.TableUpdate(target.tabID, Missing{}, Missing{}, Missing{}, indexID))
        outcome_.leftOut.push_back(
            {target.name + "." + index.Text("IndexName"), "it is refused as the primary index"});
    AddIndexColumns(indexID, *columns);
    copy.Commit();
}

std::optional<std::vector<TableCopier::IndexColumn>> TableCopier::NewIndexColumns(std::int32_t source) const {
    std::vector<IndexColumn> columns;
    for (auto row = repository_.Select(With("select * from IndexColumns where IndexID = ", source) +
                                       " order by Position");
         row.Next();) {
        const auto column = NewColumn(row.Integer("ColumnId"));
        if (!column) return {};
        columns.push_back({*column, row["Direction"], row["Position"], OriginOf(row)});
    }
    return columns;
}

void TableCopier::AddIndexColumns(std::int32_t indexID, const std::vector<IndexColumn>& columns) {
    db::TableSet row = project_.OpenTable("IndexColumns");
    for (const auto& [column, direction, position, origin] : columns) {
        row.AddNew();
        row.Set("IndexID", indexID);
        row.Set("ColumnId", column);
        row.Set("Direction", direction);
        row.Set("Position", position);
        SetOrigin(row, origin);
        row.Save();
    }
}

void TableCopier::CopyForeignKeys() {
    for (auto key = repository_.Select("select * from ForeignKeys order by KeyID"); key.Next();) {
        const auto table = newTables_.find(key.Integer("TabID"));
        const auto refTable = newTables_.find(key.Integer("RefTabId"));
        if (table == newTables_.end()) continue;
        if (refTable == newTables_.end())
            outcome_.leftOut.push_back({key.Text("KeyName"), "it refers to a table that is not imported"});
        else
            CopyForeignKey(key, table->second, refTable->second);
    }
}

void TableCopier::CopyForeignKey(const db::Query& key, std::int32_t table, std::int32_t refTable) {
    const auto pairs = NewPairs(key.Integer("KeyID"));  // before the window draws a key that cannot be
    if (!pairs) {
        outcome_.leftOut.push_back({key.Text("KeyName"), "one of its columns is refused"});
        return;
    }
    db::Transaction copy(project_);
    std::int32_t keyID = -1;
    if (!workspace_.ForeignAdd(table, refTable, key.Text("KeyName"), keyID)) {
        outcome_.leftOut.push_back({key.Text("KeyName"), "a foreign key cannot bear this name here"});
        return;
    }
    // Apart, so that each is kept without the other.
    if (!workspace_.ForeignUpdate(keyID, Missing{}, key["HowDelete"], Missing{}))
        outcome_.leftOut.push_back({"the delete rule of " + key.Text("KeyName"), "it is refused"});
    if (!workspace_.ForeignUpdate(keyID, Missing{}, Missing{}, OriginOf(key)))
        outcome_.leftOut.push_back({"the origin of " + key.Text("KeyName"), "it is refused"});
    AddForeignKeyColumns(keyID, *pairs);
    copy.Commit();
}

std::optional<std::vector<TableCopier::KeyPair>> TableCopier::NewPairs(std::int32_t source) const {
    std::vector<KeyPair> pairs;
    for (auto pair = repository_.Select(With("select * from ForeignKeyColumns where KeyID = ", source));
         pair.Next();) {
        const auto column = NewColumn(pair.Integer("ColumnId"));
        const auto refColumn = NewColumn(pair.Integer("RefColumnID"));
        if (!column || !refColumn) return {};
        pairs.push_back({*column, *refColumn, OriginOf(pair)});
    }
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

std::optional<std::int32_t> TableCopier::NewColumn(std::int32_t source) const {
    const auto column = newColumns_.find(source);
    if (column != newColumns_.end()) return column->second;
    throw Error(ErrorKind::Host, "An index or a foreign key of " + repository_.Path() + " uses the column " +
                                     std::to_string(source) + ", which it does not hold.");
}

}  // namespace tessel
