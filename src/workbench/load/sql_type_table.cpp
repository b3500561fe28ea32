#include "workbench/load/sql_type_table.h"

#include <algorithm>
#include <cctype>

namespace tessel::workbench {
namespace {

constexpr const char* longText = "LONGVARCHAR";

std::string UpperAscii(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) {
        return c < 0x80 ? static_cast<char>(std::toupper(c)) : static_cast<char>(c);
    });
    return text;
}

std::string TypeText(const MappedType& type) {
    if (type.precision == 0) return type.name;
    const std::string scale = type.scale == 0 ? "" : "," + std::to_string(type.scale);
    return type.name + "(" + std::to_string(type.precision) + scale + ")";
}

// The type of the same kind that takes any length; empty when there is none.
std::string LongTypeOf(const std::string& name) {
    if (name == "CHAR" || name == "VARCHAR") return longText;
    if (name == "BINARY" || name == "VARBINARY") return "LONGVARBINARY";
    return {};
}

}  // namespace

SqlTypeTable::SqlTypeTable(db::Database& database) {
    for (auto row = database.Select("select * from SQLTypes"); row.Next();)
        rows_[UpperAscii(row.Text("SourceTypeName"))] = {row.Integer("TypeID"), row.Integer("MaxPrecision"),
                                                         row.Integer("MaxScale")};
    if (!rows_.contains(longText))
        throw Error(ErrorKind::Host, database.Path() + " lacks the SQL type LONGVARCHAR; make it anew.");
}

ColumnType SqlTypeTable::TypeFor(std::string_view declared) const {
    const MappedType type = WithinLimits(Known(MapType(declared)));
    return {rows_.at(type.name).typeID, type.precision, type.scale, TypeText(type), type.isExact};
}

MappedType SqlTypeTable::Known(MappedType type) const {
    if (rows_.contains(type.name)) return type;
    return {longText, 0, 0, false};
}

MappedType SqlTypeTable::WithinLimits(MappedType type) const {
    const Row& limits = rows_.at(type.name);
    if (limits.maxPrecision == 0) return {type.name, 0, 0, type.isExact};
    if (type.precision > limits.maxPrecision) {
        const std::string longType = LongTypeOf(type.name);
        if (rows_.contains(longType)) return {longType, 0, 0, false};
        type.isExact = false;
    }
    type.precision = std::clamp(type.precision, 0, limits.maxPrecision);
    const std::int32_t scale = std::clamp(type.scale, 0, limits.maxScale);
    type.isExact = type.isExact && (scale == type.scale || limits.maxScale == 0);
    type.scale = scale;
    return type;
}

}  // namespace tessel::workbench
