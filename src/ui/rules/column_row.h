#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "schema/component_state.h"
#include "schema/object_keys.h"

namespace tessel {

// A column of a table as every list of columns shows it.
struct ColumnRow {
    std::int32_t columnID = -1;
    std::string name;
    std::string typeText;
    bool isNullable = true;
    std::string comment;  // as stored
    std::string tag;      // its origin reference

    [[nodiscard]] std::string Key() const { return ColumnKey(columnID); }
};

// The table's columns in their order. Database errors are thrown.
[[nodiscard]] std::vector<ColumnRow> ReadColumns(const ComponentState& state, std::int32_t tabID);

// "key" for a column of the primary key, else "notnull" for one that admits no Null, else none.
[[nodiscard]] std::string ColumnIcon(bool isKey, bool isNullable);

// A column as the text of an index names it: its name, with " desc" behind it when it descends.
[[nodiscard]] std::string IndexColumnText(const std::string& name, bool descends);

// Adds the item to a text of items that are parted by the separator.
void AppendListed(std::string& list, const std::string& item, std::string_view separator = ", ");

}  // namespace tessel
