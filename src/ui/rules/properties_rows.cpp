#include "ui/rules/properties_rows.h"

#include "platform/text/utf8.h"
#include "schema/sql_text.h"
#include "ui/rules/icon_keys.h"

namespace tessel {

namespace {

std::vector<PropertyRow> ReadColumnRows(ComponentState& state, std::int32_t tabID) {
    const auto primaryKey = WorkspaceOf(state)->PrimaryKeyColumns(tabID);
    std::vector<PropertyRow> rows;
    for (const ColumnRow& column : ReadColumns(state, tabID))
        rows.push_back(ColumnPropertyRow(column, primaryKey->HasKey(column.Key())));
    return rows;
}

std::string ReadIndexColumns(const ComponentState& state, std::int32_t indexID) {
    std::string columns;
    for (auto column = state.Database().Select(
             "select C.ColumnName, IC.Direction from IndexColumns IC, Columns C where IC.IndexID = " +
             std::to_string(indexID) + " and IC.ColumnId = C.ColumnID order by IC.Position");
         column.Next();)
        AppendListed(columns, IndexColumnText(column.Text("ColumnName"),
                                              text::SameText(column.Text("Direction"), "D")));
    return columns;
}

std::vector<PropertyRow> ReadIndexRows(const ComponentState& state, std::int32_t tabID) {
    std::vector<PropertyRow> rows;
    for (auto index = state.Database().Select("select * from Indices where TabId = " + std::to_string(tabID) +
                                              " order by IndexName");
         index.Next();) {
        PropertyRow row = NewIndexRow(index.Integer("IndexID"), index.Text("IndexName"));
        if (index.Boolean("Unique")) row.icon = icon::uniqueIndex;
        row.tag = NullToText(index["CVRL"]);
        row.comment = NullToText(index["Comment"]);
        row.subItems = {ReadIndexColumns(state, row.identifier), FlattenText(row.comment)};
        rows.push_back(std::move(row));
    }
    return rows;
}

// The two tabs that list keys, as parts of their statements.
struct KeySelection {
    const char* ownTable;    // the key's field that holds the table
    const char* otherTable;  // the one that holds the table at the other end
    const char* pairOrder;
};

struct KeyPairs {
    std::string columns;
    std::string refColumns;
};

KeyPairs ReadPairs(const ComponentState& state, std::int32_t keyID, const char* order) {
    KeyPairs pairs;
    for (auto pair = state.Database().Select("select C.ColumnName, RC.ColumnName as RefColumnName "
                                             "from ForeignKeyColumns FC, Columns C, Columns RC "
                                             "where FC.KeyID = " +
                                             std::to_string(keyID) +
                                             " and FC.ColumnId = C.ColumnID and FC.RefColumnId = RC.ColumnID "
                                             "order by " +
                                             order);
         pair.Next();) {
        AppendListed(pairs.columns, pair.Text("ColumnName"));
        AppendListed(pairs.refColumns, pair.Text("RefColumnName"));
    }
    return pairs;
}

std::vector<PropertyRow> ReadKeyRows(const ComponentState& state, std::int32_t tabID,
                                     const KeySelection& selection) {
    std::vector<PropertyRow> rows;
    for (auto key = state.Database().Select(
             std::string("select F.*, T.TableName from ForeignKeys F, Tables T where ") + selection.ownTable +
             " = " + std::to_string(tabID) + " and " + selection.otherTable +
             " = T.TabId order by F.KeyName");
         key.Next();) {
        const std::int32_t keyID = key.Integer("KeyID");
        const auto [columns, refColumns] = ReadPairs(state, keyID, selection.pairOrder);
        const std::string comment = NullToText(key["Comment"]);
        rows.push_back(
            {.key = ForeignKeyKey(keyID),
             .identifier = keyID,
             .text = key.Text("KeyName"),
             .icon = icon::foreign,
             .subItems = {columns, key.Text("TableName"), refColumns,
                          text::SameText(key.Text("HowDelete"), "C") ? state.cascadeText : state.restrictText,
                          FlattenText(comment)},
             .tag = NullToText(key["CVRL"]),
             .comment = comment});
    }
    return rows;
}

}  // namespace

const PropertiesTabInfo& InfoOf(PropertiesTab tab) {
    using enum host::Icon;
    static const PropertiesTabInfo infos[]{
        {"Columns", 544, {545, 546, 547}, 2441, 2307, 2310, None, 2442, 2313},
        {"Indexes", 555, {556, 544, 547}, 2443, 2308, 2311, None, 2444, 2314},
        {"Keys", 548, {549, 544, 550, 551, 552, 547}, 2451, 2309, 2312, Critical, 2452, 2315},
        {"Referenced By", 553, {549, 544, 554, 551, 552, 547}, 2451, 2309, 2312, Critical, 2452, 2315},
    };
    return infos[static_cast<std::size_t>(tab)];
}

std::vector<PropertyRow> ReadPropertyRows(ComponentState& state, PropertiesTab tab, std::int32_t tabID) {
    switch (tab) {
        case PropertiesTab::Columns:
            return ReadColumnRows(state, tabID);
        case PropertiesTab::Indexes:
            return ReadIndexRows(state, tabID);
        case PropertiesTab::Keys:
            return ReadKeyRows(state, tabID, {"F.TabId", "F.RefTabId", "RC.Position"});
        case PropertiesTab::ReferencedBy:
            return ReadKeyRows(state, tabID, {"F.RefTabId", "F.TabId", "C.Position"});
    }
    return {};
}

std::string IndexKey(std::int32_t indexID) { return "i" + std::to_string(indexID); }

PropertyRow ColumnPropertyRow(const ColumnRow& column, bool isKey) {
    return {.key = column.Key(),
            .identifier = column.columnID,
            .text = column.name,
            .icon = ColumnIcon(isKey, column.isNullable),
            .subItems = {column.typeText, FlattenText(column.comment)},
            .tag = column.tag,
            .comment = column.comment};
}

PropertyRow NewIndexRow(std::int32_t indexID, const std::string& name) {
    return {.key = IndexKey(indexID),
            .identifier = indexID,
            .text = name,
            .icon = icon::index,
            .subItems = {"", ""},
            .tag = {},
            .comment = {}};
}

}  // namespace tessel
