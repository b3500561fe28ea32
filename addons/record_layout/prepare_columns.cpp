#include "column_type.h"
#include "comment.h"
#include "free_names.h"
#include "host_calls.h"
#include "import.h"

namespace tessel::layout {

namespace {

std::string FieldName(VNTWS& workspace, const Field& field, Remarks& remarks) {
    Value noCaret = Missing{};
    std::string name = workspace.SQLID(field.name, noCaret);
    if (!name.empty()) return name;
    remarks.Add(field.item->place, Text::NameRefused, {field.name});
    return "C";
}

std::vector<ColumnType> FieldTypes(VNTWS& workspace, const SqlTypeList& types, const Plan& plan,
                                   Language language) {
    std::vector<ColumnType> chosen;
    for (const auto& field : plan.fields)
        chosen.push_back(ChooseType(workspace, types, *field.item, language));
    return chosen;
}

// Without those that the table's columns have.
FreeNames NamesFor(VNTWS& workspace, const Target& target) {
    FreeNames names;
    const std::string sql = "select ColumnName from Columns where TabID = " + std::to_string(target.tabID);
    if (target.tabID != 0)
        for (const auto& row : SelectRows(workspace, sql)) names.Reserve(TextOf(*row, "ColumnName"));
    return names;
}

}  // namespace

std::vector<NewColumn> PrepareColumns(VNTWS& workspace, const Target& target, Plan plan, Remarks& remarks,
                                      Language language) {
    const SqlTypeList types(workspace);
    const std::vector<ColumnType> fieldTypes = FieldTypes(workspace, types, plan, language);
    for (auto& field : plan.fields) field.name = FieldName(workspace, field, remarks);
    FreeNames names = NamesFor(workspace, target);
    std::vector<NewColumn> columns;
    for (const auto& column : plan.columns) {
        const Field& field = plan.fields[column.field];
        const ColumnType& type = fieldTypes[column.field];
        columns.push_back({.name = names.Take(plan.NameOf(column)),
                           .typeID = type.typeID,
                           .precision = type.precision,
                           .scale = type.scale,
                           .typeText = types.Shown(type.typeID, type.precision, type.scale),
                           .picture = WrittenPicture(*field.item),
                           .comment = CommentOf(field, column, type.reason, language),
                           .place = field.item->place});
    }
    return columns;
}

}  // namespace tessel::layout
