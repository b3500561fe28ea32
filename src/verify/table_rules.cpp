#include "schema/identifiers.h"
#include "verify/findings.h"

namespace tessel {

namespace {

bool IsEmpty(const Value& text) { return text.IsNull() || text.IsEmptyText(); }

void CheckColumn(Findings& findings, std::int32_t tabID, const db::Query& column) {
    const auto record = [&](Rule rule, std::initializer_list<std::string_view> names = {}) {
        findings.Record(Place::Column(tabID, column.Integer("ColumnID")), rule, names);
    };
    if (IsEmpty(column["ColumnName"])) record(Rule::ColumnNameEmpty);
    const SqlTypeInfo& type = findings.State().sqlTypes.GetSqlTypeInfo(column.Integer("TypeID"));
    if (type.maxPrecision > 0 && column.Integer("Precision") > type.maxPrecision)
        record(Rule::PrecisionTooLarge, {type.name});
    if (type.maxScale > 0 && column.Integer("Scale") > type.maxScale)
        record(Rule::ScaleTooLarge, {type.name});
}

void CheckIndexColumn(Findings& findings, std::int32_t tabID, const db::Query& row) {
    if (row.Boolean("Unique") && row.Boolean("IsNullable"))
        findings.Record(Place::Column(tabID, row.Integer("ColumnID")), Rule::UniqueNullable,
                        {row.Text("IndexName"), row.Text("ColumnName")});
}

}  // namespace

void CheckTableName(Findings& findings, std::int32_t tabID, const std::string& tableName) {
    const Place place = Place::Table(tabID);
    if (tableName.empty()) findings.Record(place, Rule::TableNameEmpty);
    if (SQLID(findings.State(), tableName) != tableName) findings.Record(place, Rule::TableNameIllegal);
}

void CheckColumns(Findings& findings, std::int32_t tabID) {
    auto column =
        findings.Select("select ColumnID, ColumnName, TypeID, Precision, Scale from Columns where TabID=" +
                        std::to_string(tabID));
    if (!column.Next()) return findings.Record(Place::Table(tabID), Rule::NoColumns);
    do {
        CheckColumn(findings, tabID, column);
    } while (column.Next());
}

// The rows of an index follow each other: one for each of its entries, some of which may name no column that
// is there.
void CheckIndexes(Findings& findings, std::int32_t tabID) {
    auto row = findings.Select(
        "select I.IndexID, I.IndexName, I.[Unique], C.ColumnID, C.ColumnName, C.IsNullable from Indices I "
        "left join IndexColumns IC on IC.IndexID = I.IndexID "
        "left join Columns C on C.ColumnID = IC.ColumnID where I.TabID =" +
        std::to_string(tabID));
    for (bool isThere = row.Next(); isThere;) {
        const std::int32_t indexID = row.Integer("IndexID");
        const std::string indexName = row.Text("IndexName");
        bool isEmpty = true;
        for (; isThere && row.Integer("IndexID") == indexID; isThere = row.Next()) {
            if (row["ColumnID"].IsNull()) continue;
            isEmpty = false;
            CheckIndexColumn(findings, tabID, row);
        }
        if (isEmpty) findings.Record(Place::Index(tabID), Rule::IndexEmpty, {indexName});
    }
}

}  // namespace tessel
