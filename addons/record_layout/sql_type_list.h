#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <unordered_map>

#include "tessel/vntws.h"

namespace tessel::layout {

// The SQL types that the schema knows.
class SqlTypeList {
  public:
    explicit SqlTypeList(VNTWS& workspace);

    // The first of the names that there is a type for; 0 when there is none.
    [[nodiscard]] std::int32_t FirstOf(std::initializer_list<const char*> names) const;
    [[nodiscard]] std::string NameOf(std::int32_t typeID) const;
    // Whether the type takes no precision as large as this.
    [[nodiscard]] bool IsTooLarge(std::int32_t typeID, std::int32_t precision) const;
    // As the editor shows it, such as DECIMAL(9,2).
    [[nodiscard]] std::string Shown(std::int32_t typeID, std::int32_t precision, std::int32_t scale) const;

  private:
    struct Type {
        std::string name;
        std::int32_t maxPrecision = 0;  // 0: takes none
        std::int32_t maxScale = 0;
    };
    std::unordered_map<std::int32_t, Type> types_;
};

}  // namespace tessel::layout
