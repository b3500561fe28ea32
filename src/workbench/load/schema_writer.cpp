#include "workbench/load/schema_writer.h"

#include <unordered_map>

#include "platform/text/utf8.h"
#include "tessel/convert.h"

namespace tessel::workbench {
namespace {

std::string OriginOf(const TableMarks& marks) { return "obj:" + marks.object; }

Value NullWhenNone(const std::optional<std::string>& text) { return text ? Value(*text) : Value(); }
Value NullWhenEmpty(const std::string& text) { return text.empty() ? Value() : Value(text); }

}  // namespace

std::vector<SchemaWriter::Row> SchemaWriter::Tables() const {
    std::vector<Row> rows;
    for (auto row = database_.Select("select TabID, TableName, RepObjId, CreatedVia, Created from Tables");
         row.Next();)
        rows.push_back({row.Integer("TabID"), row.Text("TableName"), row.Text("RepObjId"),
                        row.Text("CreatedVia"), row.Text("Created")});
    return rows;
}

void SchemaWriter::DropTable(std::int32_t tabID) {
    const std::string identifier = std::to_string(tabID);
    DropKeys("TabID = " + identifier + " or RefTabId = " + identifier);
    DropIndexes(tabID);
    database_.Execute("delete from Columns where TabID = " + identifier);
    database_.Execute("delete from Tables where TabID = " + identifier);
}

void SchemaWriter::DropIndexes(std::int32_t tabID) {
    const std::string identifier = std::to_string(tabID);
    database_.Execute(
        "delete from IndexColumns where IndexID in (select IndexID from Indices where TabID = " + identifier +
        ")");
    database_.Execute("delete from Indices where TabID = " + identifier);
}

void SchemaWriter::DropKeys(const std::string& condition) {
    database_.Execute("delete from ForeignKeyColumns where KeyID in (select KeyID from ForeignKeys where " +
                      condition + ")");
    database_.Execute("delete from ForeignKeys where " + condition);
}

std::int32_t SchemaWriter::WriteTable(std::optional<std::int32_t> tabID, const TableDefinition& table,
                                      const TableMarks& marks) {
    db::TableSet row = database_.OpenTable("Tables");
    row.SetIndex("PrimaryKey");
    if (tabID && row.Seek({*tabID}))
        row.Edit();
    else
        row.AddNew();
    row.Set("TableName", table.name);
    row.Set("Comments", NullWhenEmpty(table.comment));
    row.Set("RepObjId", marks.object);
    row.Set("Created", marks.modified);
    row.Set("CreatedVia", marks.source);
    row.Set("CVRL", OriginOf(marks));
    const std::int32_t written = ToInt32(row.Get("TabID"));
    row.Save();
    WriteColumns(written, table, marks);
    return written;
}

void SchemaWriter::WriteColumns(std::int32_t tabID, const TableDefinition& table, const TableMarks& marks) {
    std::unordered_map<std::string, std::int32_t> old;  // by name in lower case
    for (auto row = database_.Select("select ColumnID, ColumnName from Columns where TabID = " +
                                     std::to_string(tabID));
         row.Next();)
        old[text::LowerAscii(row.Text("ColumnName"))] = row.Integer("ColumnID");
    db::TableSet row = database_.OpenTable("Columns");
    row.SetIndex("PrimaryKey");
    std::int32_t position = 0;
    for (const auto& column : table.columns) {
        const auto known = old.extract(text::LowerAscii(column.name));
        if (known && row.Seek({known.mapped()})) {
            row.Edit();
        } else {
            row.AddNew();
            row.Set("TabID", tabID);
            row.Set("Created", marks.modified);
        }
        row.Set("ColumnName", column.name);
        row.Set("Position", ++position);
        row.Set("TypeID", column.type.typeID);
        row.Set("Precision", column.type.precision);
        row.Set("Scale", column.type.scale);
        row.Set("IsNullable", column.isNullable);
        row.Set("DefaultValue", NullWhenNone(column.defaultValue));
        row.Set("Comments", NullWhenEmpty(column.comment));
        row.Set("CreatedVia", marks.source);
        row.Set("CVRL", OriginOf(marks));
        row.Save();
    }
    for (const auto& [name, columnID] : old)
        database_.Execute("delete from Columns where ColumnID = " + std::to_string(columnID));
}

void SchemaWriter::WriteIndexes(std::int32_t tabID, const TableDefinition& table, const std::string& origin) {
    DropIndexes(tabID);
    const auto columnIDs = ColumnIDs(tabID);
    Value primary;
    db::TableSet row = database_.OpenTable("Indices");
    db::TableSet part = database_.OpenTable("IndexColumns");
    for (const auto& index : table.indexes) {
        row.AddNew();
        row.Set("TabID", tabID);
        row.Set("IndexName", index.name);
        row.Set("Unique", index.isUnique);
        row.Set("Comment", NullWhenEmpty(index.comment));
        row.Set("CVRL", origin);
        const Value indexID = row.Get("IndexID");
        row.Save();
        if (index.isPrimary) primary = indexID;
        std::int32_t position = 0;
        for (const auto& [column, isDescending] : index.parts) {
            part.AddNew();
            part.Set("IndexID", indexID);
            part.Set("ColumnID", columnIDs.at(column));
            part.Set("Position", ++position);
            part.Set("Direction", isDescending ? "D" : "A");
            part.Set("CVRL", origin);
            part.Save();
        }
    }
    db::TableSet owner = database_.OpenTable("Tables");
    owner.SetIndex("PrimaryKey");
    owner.Seek({tabID});
    owner.Edit();
    owner.Set("PrimaryIndexID", primary);
    owner.Save();
}

void SchemaWriter::WriteKeys(std::int32_t tabID, const TableDefinition& table,
                             const std::vector<std::int32_t>& tabIDs, const std::string& origin) {
    DropKeys("TabID = " + std::to_string(tabID));
    if (table.keys.empty()) return;
    const auto columnIDs = ColumnIDs(tabID);
    db::TableSet row = database_.OpenTable("ForeignKeys");
    db::TableSet pair = database_.OpenTable("ForeignKeyColumns");
    for (const auto& key : table.keys) {
        row.AddNew();
        row.Set("TabID", tabID);
        row.Set("RefTabId", tabIDs.at(key.refTable));
        row.Set("KeyName", key.name);
        row.Set("HowDelete", key.deletesCascade ? "C" : "R");
        row.Set("Comment", NullWhenEmpty(key.comment));
        row.Set("CVRL", origin);
        const Value keyID = row.Get("KeyID");
        row.Save();
        const auto refColumnIDs = ColumnIDs(tabIDs.at(key.refTable));
        for (const auto& [column, refColumn] : key.pairs) {
            pair.AddNew();
            pair.Set("KeyID", keyID);
            pair.Set("ColumnID", columnIDs.at(column));
            pair.Set("RefColumnID", refColumnIDs.at(refColumn));
            pair.Set("CVRL", origin);
            pair.Save();
        }
    }
}

std::vector<std::int32_t> SchemaWriter::ColumnIDs(std::int32_t tabID) const {
    std::vector<std::int32_t> identifiers;
    for (auto row = database_.Select("select ColumnID from Columns where TabID = " + std::to_string(tabID) +
                                     " order by Position");
         row.Next();)
        identifiers.push_back(row.Integer("ColumnID"));
    return identifiers;
}

}  // namespace tessel::workbench
