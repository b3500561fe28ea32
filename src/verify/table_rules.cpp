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

void CheckIndex(Findings& findings, std::int32_t tabID, const db::Query& index) {
    const std::string indexName = index.Text("IndexName");
    auto column = findings.Select(
        "select C.ColumnID, C.ColumnName, C.IsNullable from IndexColumns IC, Columns C where IC.IndexID =" +
        std::to_string(index.Integer("IndexID")) + " and IC.ColumnID = C.ColumnID");
    if (!column.Next()) return findings.Record(Place::Index(tabID), Rule::IndexEmpty, {indexName});
    if (!index.Boolean("Unique")) return;
    do {
        if (column.Boolean("IsNullable"))
            findings.Record(Place::Column(tabID, column.Integer("ColumnID")), Rule::UniqueNullable,
                            {indexName, column.Text("ColumnName")});
    } while (column.Next());
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

void CheckIndexes(Findings& findings, std::int32_t tabID) {
    for (auto index = findings.Select("select IndexID, IndexName, [Unique] from Indices where TabID =" +
                                      std::to_string(tabID));
         index.Next();)
        CheckIndex(findings, tabID, index);
}

}  // namespace tessel
