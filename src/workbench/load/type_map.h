#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessel::workbench {

// An SQL type of the schema database, by name, as it comes closest to a type declared elsewhere.
struct MappedType {
    std::string name;
    std::int32_t precision = 0;
    std::int32_t scale = 0;
    bool isExact = true;  // false when something of the declared type is lost
};

// The counterpart of a declared type such as "character varying(30)", by its name and size. A type without
// one becomes VARCHAR where it has a size, else LONGVARCHAR.
[[nodiscard]] MappedType MapType(std::string_view declared);

}  // namespace tessel::workbench
