#include "ui/rules/column_row.h"

#include "schema/sql_text.h"
#include "ui/rules/icon_keys.h"

namespace tessel {

std::vector<ColumnRow> ReadColumns(const ComponentState& state, std::int32_t tabID) {
    std::vector<ColumnRow> columns;
    for (auto row = state.Database().Select("select * from Columns where TabId = " + std::to_string(tabID) +
                                            " order by Position");
         row.Next();)
        columns.push_back({.columnID = row.Integer("ColumnID"),
                           .name = row.Text("ColumnName"),
                           .typeText = state.sqlTypes.SqlTypeText(
                               row.Integer("TypeID"), row.Integer("Precision"), row.Integer("Scale")),
                           .isNullable = row.Boolean("IsNullable"),
                           .comment = NullToText(row["Comments"]),
                           .tag = NullToText(row["CVRL"])});
    return columns;
}

std::string ColumnIcon(bool isKey, bool isNullable) {
    if (isKey) return icon::key;
    return isNullable ? icon::none : icon::notNull;
}

std::string IndexColumnText(const std::string& name, bool descends) {
    return descends ? name + " desc" : name;
}

void AppendListed(std::string& list, const std::string& item, std::string_view separator) {
    if (!list.empty()) list += separator;
    list += item;
}

}  // namespace tessel
