#pragma once

#include <cstdint>
#include <string>

#include "items.h"
#include "sql_type_list.h"
#include "tessel/vntws.h"
#include "texts.h"

namespace tessel::layout {

// The SQL type of an item, and why it has this one.
struct ColumnType {
    std::int32_t typeID = 0;
    std::int32_t precision = 0;
    std::int32_t scale = 0;
    std::string reason{};
};

// Asks the workspace for the type that fits the item. What is too long for that becomes a long text. Throws
// Complaint when the schema has no type that could fit.
[[nodiscard]] ColumnType ChooseType(VNTWS& workspace, const SqlTypeList& types, const Item& item,
                                    Language language);

}  // namespace tessel::layout
