#include "sql_type_list.h"

#include "host_calls.h"
#include "line_text.h"

namespace tessel::layout {

SqlTypeList::SqlTypeList(VNTWS& workspace) {
    for (const auto& row :
         SelectRows(workspace, "select TypeID, SourceTypeName, MaxPrecision, MaxScale from SQLTypes"))
        types_[NumberOf(*row, "TypeID")] = {TextOf(*row, "SourceTypeName"), NumberOf(*row, "MaxPrecision"),
                                            NumberOf(*row, "MaxScale")};
}

std::int32_t SqlTypeList::FirstOf(std::initializer_list<const char*> names) const {
    for (const char* name : names)
        for (const auto& [typeID, type] : types_)
            if (Upper(type.name) == name) return typeID;
    return 0;
}

std::string SqlTypeList::NameOf(std::int32_t typeID) const {
    const auto type = types_.find(typeID);
    return type == types_.end() ? "<Unknown>" : type->second.name;
}

bool SqlTypeList::IsTooLarge(std::int32_t typeID, std::int32_t precision) const {
    const auto type = types_.find(typeID);
    return type != types_.end() && type->second.maxPrecision > 0 && precision > type->second.maxPrecision;
}

std::string SqlTypeList::Shown(std::int32_t typeID, std::int32_t precision, std::int32_t scale) const {
    std::string text = NameOf(typeID);
    const auto type = types_.find(typeID);
    if (type == types_.end() || type->second.maxPrecision == 0 || precision < 1) return text;
    text += '(' + std::to_string(precision);
    if (type->second.maxScale != 0 && scale >= 1) text += ',' + std::to_string(scale);
    return text + ')';
}

}  // namespace tessel::layout
