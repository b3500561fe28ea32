#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/db/database.h"
#include "workbench/load/type_map.h"

namespace tessel::workbench {

// A column's type in the schema database.
struct ColumnType {
    std::int32_t typeID = 0;
    std::int32_t precision = 0;
    std::int32_t scale = 0;
    std::string text;  // such as "DECIMAL(10,2)"
    bool isExact = true;
};

// The SQL types that a schema database knows, with their limits.
class SqlTypeTable {
  public:
    // Throws ErrorKind::Host when the database does not even know LONGVARCHAR.
    explicit SqlTypeTable(db::Database& database);

    // The type that comes closest to a declared one, within the limits.
    [[nodiscard]] ColumnType TypeFor(std::string_view declared) const;

  private:
    struct Row {
        std::int32_t typeID = 0;
        std::int32_t maxPrecision = 0;
        std::int32_t maxScale = 0;
    };

    [[nodiscard]] MappedType Known(MappedType type) const;
    [[nodiscard]] MappedType WithinLimits(MappedType type) const;

    std::unordered_map<std::string, Row> rows_;  // by name in upper case
};

}  // namespace tessel::workbench
