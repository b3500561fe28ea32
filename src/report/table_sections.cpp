#include "report/table_sections.h"

#include "platform/text/utf8.h"
#include "schema/object_keys.h"
#include "schema/sql_text.h"

namespace tessel {

namespace {

constexpr std::string_view tableStart = R"(<table border="0" class="flat" width="100%" >)";

std::string Anchor(char letter, std::int32_t id) {
    return std::string("<a name=\"") + letter + std::to_string(id) + "\"></a>";
}

std::string ColumnLink(std::int32_t columnID, const std::string& name) {
    return "<a href=\"#c" + std::to_string(columnID) + "\">" + name + "</a>";
}

void Append(std::string& list, const std::string& item) {
    if (!list.empty()) list += ", ";
    list += item;
}

std::string CleanedComment(const db::Query& row) { return FlattenText(NullToText(row["Comment"])); }

}  // namespace

struct TableSections::KeyList {
    const char* ownTable;    // the key's field that holds this table
    const char* otherTable;  // the one that holds the table at the other end
    int heading;
    int otherTableHeading;
    char anchor;
    const char* columnOrder;
};

void TableSections::Write(std::int32_t tabID) {
    static constexpr KeyList keys{"F.TabId", "F.RefTabId", 548, 550, 'k', "RC.Position"};
    static constexpr KeyList referencedBy{"F.RefTabId", "F.TabId", 553, 554, 'b', "C.Position"};
    WriteColumns(tabID);
    WriteKeys(tabID, keys);
    WriteKeys(tabID, referencedBy);
    WriteIndexes(tabID);
}

void TableSections::WriteColumns(std::int32_t tabID) {
    page_.Line("<br><b>" + Text(544) + "</b>");
    page_.Line(tableStart);
    page_.Line("<tr align=\"center\"><th>&nbsp;</th><th>" + Text(545) + "</th><th>" + Text(546) +
               "</th><th>" + Text(547) + "</th></tr>");
    const auto primaryKey = WorkspaceOf(state_)->PrimaryKeyColumns(tabID);
    for (auto column = state_.Database().Select(
             "select * from Columns where TabId = " + std::to_string(tabID) + " order by Position");
         column.Next();)
        WriteColumn(column, *primaryKey);
    page_.Line("</table>");
}

void TableSections::WriteColumn(const db::Query& column, const Collection& primaryKey) {
    const std::int32_t columnID = column.Integer("ColumnID");
    std::string_view picture;
    if (CollectionHasKey(primaryKey, ColumnKey(columnID)))
        picture = R"(<img src="bigkey.gif">)";
    else if (!column.Boolean("IsNullable"))
        picture = R"(<img src="nonull.gif">)";
    page_.Line("<tr>");
    WriteCell(picture, "center");
    WriteCell(Anchor('c', columnID) + column.Text("ColumnName"));
    WriteCell(state_.sqlTypes.SqlTypeText(column.Integer("TypeID"), column.Integer("Precision"),
                                          column.Integer("Scale")));
    WriteCell(column.Text("Comments"));
    page_.Line("</tr>");
}

void TableSections::WriteKeys(std::int32_t tabID, const KeyList& list) {
    auto key = state_.Database().Select(
        std::string("select F.*, T.TableName, T.TabID as TID from ForeignKeys F, Tables T where ") +
        list.ownTable + " = " + std::to_string(tabID) + " and " + list.otherTable +
        " = T.TabId order by F.KeyName");
    if (!key.Next()) return;
    StartSection(list.heading, {549, 544, list.otherTableHeading, 551, 552, 547});
    do WriteKey(key, list);
    while (key.Next());
    page_.Line("</table>");
}

void TableSections::WriteKey(const db::Query& key, const KeyList& list) {
    const std::int32_t keyID = key.Integer("KeyID");
    std::string columns;
    std::string referenced;
    for (auto pair = state_.Database().Select(
             "select C.ColumnName, C.ColumnID, RC.ColumnName as RefColumnName, RC.ColumnID as RefColumnID "
             "from ForeignKeyColumns FC, Columns C, Columns RC where FC.KeyID = " +
             std::to_string(keyID) +
             " and FC.ColumnId = C.ColumnID and FC.RefColumnId = RC.ColumnID order by " + list.columnOrder);
         pair.Next();) {
        Append(columns, ColumnLink(pair.Integer("ColumnID"), pair.Text("ColumnName")));
        Append(referenced, ColumnLink(pair.Integer("RefColumnID"), pair.Text("RefColumnName")));
    }
    const std::string table = key.Text("TableName");
    page_.Line("<tr>");
    WriteCell(Anchor(list.anchor, keyID) + key.Text("KeyName"));
    WriteCell(columns);
    WriteCell("<a href=\"#Table:" + table + "\">" + table + "</a>");
    WriteCell(referenced);
    WriteCell(text::SameText(key.Text("HowDelete"), "C") ? state_.cascadeText : state_.restrictText);
    WriteCell(CleanedComment(key));
    page_.Line("</tr>");
}

void TableSections::WriteIndexes(std::int32_t tabID) {
    auto index = state_.Database().Select("select * from Indices where TabId = " + std::to_string(tabID) +
                                          " order by IndexName");
    if (!index.Next()) return;
    StartSection(555, {556, 544, 547});
    do WriteIndex(index);
    while (index.Next());
    page_.Line("</table>");
}

void TableSections::WriteIndex(const db::Query& index) {
    const std::int32_t indexID = index.Integer("IndexID");
    page_.Line("<tr>");
    WriteCell(Anchor('i', indexID) + index.Text("IndexName"));
    WriteCell(IndexColumns(indexID));
    WriteCell(CleanedComment(index));
    page_.Line("</tr>");
}

std::string TableSections::IndexColumns(std::int32_t indexID) {
    std::string columns;
    for (auto column = state_.Database().Select(
             "select C.ColumnName, C.ColumnID, IC.Direction from IndexColumns IC, Columns C "
             "where IC.IndexID = " +
             std::to_string(indexID) + " and IC.ColumnId = C.ColumnID order by IC.Position");
         column.Next();) {
        const bool descends = text::SameText(column.Text("Direction"), "D");
        Append(columns,
               ColumnLink(column.Integer("ColumnID"), column.Text("ColumnName")) + (descends ? " desc" : ""));
    }
    return columns;
}

void TableSections::StartSection(int heading, std::initializer_list<int> columns) {
    page_.Line("<br><b>" + Text(heading) + "</b>");
    page_.Line(tableStart);
    std::string headings = "<tr>";
    for (const int column : columns) headings += "<th>" + Text(column) + "</th>";
    page_.Line(headings + "</tr>");
}

void TableSections::WriteCell(std::string_view content, std::string_view alignment) {
    page_.Put("<td");
    if (!alignment.empty()) page_.Put(" align=\"" + std::string(alignment) + "\"");
    page_.Put(">");
    page_.Put(content.empty() ? "&nbsp;" : content);
    page_.Line("</td>");
}

}  // namespace tessel
