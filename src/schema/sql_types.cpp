#include "schema/sql_types.h"

#include "platform/text/utf8.h"

namespace tessel {

void SqlTypeCatalogue::LoadSqlTypes(db::Database& database) {
    SqlTypeCatalogue loaded;
    for (auto row = database.Select("Select * from SQLTypes order by SourceTypeName"); row.Next();) {
        const std::int32_t typeID = row.Integer("TypeID");
        const std::string name = row.Text("SourceTypeName");
        if (!loaded.ids_.emplace(text::LowerAscii(name), typeID).second)
            throw Error(ErrorKind::Collection, "Two SQL types share the name \"" + name + "\".");
        loaded.types_[typeID] = {name, row.Integer("MaxPrecision"), row.Integer("MaxScale")};
        loaded.names_.push_back(name);
    }
    *this = std::move(loaded);
}

const SqlTypeInfo& SqlTypeCatalogue::GetSqlTypeInfo(std::int32_t typeID) const {
    static const SqlTypeInfo unknown;
    const auto type = types_.find(typeID);
    return type == types_.end() ? unknown : type->second;
}

std::string SqlTypeCatalogue::SqlTypeText(std::int32_t typeID, std::int32_t precision,
                                          std::int32_t scale) const {
    const SqlTypeInfo& type = GetSqlTypeInfo(typeID);
    std::string text = type.name;
    if (type.maxPrecision == 0 || precision < 1) return text;
    text += '(' + std::to_string(precision);
    if (type.maxScale != 0 && scale >= 1) text += ',' + std::to_string(scale);
    return text + ')';
}

std::int32_t SqlTypeCatalogue::SqlTypeIdByName(const std::string& name) const {
    const auto id = ids_.find(text::LowerAscii(name));
    if (id == ids_.end())
        throw Error(ErrorKind::Collection, "There is no SQL type with the name \"" + name + "\".");
    return id->second;
}

}  // namespace tessel
