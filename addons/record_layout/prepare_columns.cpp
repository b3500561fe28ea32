#include "column_type.h"
#include "comment.h"
#include "free_names.h"
#include "import.h"

namespace tessel::layout {

namespace {

// What columns of one field share.
struct PreparedField {
    std::string name;
    ColumnType type;
};

std::string FieldName(VNTWS& workspace, const Field& field, Remarks& remarks) {
    Value noCaret = Missing{};
    std::string name = workspace.SQLID(field.name, noCaret);
    if (!name.empty()) return name;
    remarks.Add(field.item->place, Text::NameRefused, {field.name});
    return "C";
}

std::vector<PreparedField> PrepareFields(VNTWS& workspace, const SqlTypeList& types, const Plan& plan,
                                         Remarks& remarks, Language language) {
    std::vector<PreparedField> fields;
    for (const auto& field : plan.fields)
        fields.push_back(
            {FieldName(workspace, field, remarks), ChooseType(workspace, types, *field.item, language)});
    return fields;
}

}  // namespace

std::vector<NewColumn> PrepareColumns(VNTWS& workspace, const Plan& plan, Remarks& remarks,
                                      Language language) {
    const SqlTypeList types(workspace);
    const std::vector<PreparedField> fields = PrepareFields(workspace, types, plan, remarks, language);
    FreeNames names;
    std::vector<NewColumn> columns;
    for (const auto& column : plan.columns) {
        const Field& field = plan.fields[column.field];
        const auto& [name, type] = fields[column.field];
        columns.push_back({.name = names.Take(ColumnName(name, column)),
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
