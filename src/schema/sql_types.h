#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/db/database.h"

namespace tessel {

// One SQL type of the catalogue. A limit of 0 means that the type takes no precision, or no scale.
struct SqlTypeInfo {
    std::string name = "<Unknown>";
    std::int32_t maxPrecision = 0;
    std::int32_t maxScale = 0;
};

// The table SQLTypes in memory. Until it is loaded every type is unknown.
class SqlTypeCatalogue {
  public:
    // Reads the catalogue anew. Throws when two types share a name (in any letter case), and on database
    // errors.
    void LoadSqlTypes(db::Database& database);

    // The type, or the unknown one.
    [[nodiscard]] const SqlTypeInfo& GetSqlTypeInfo(std::int32_t typeID) const;

    // What is shown as a column's type: NAME, NAME(precision) or NAME(precision,scale); "<Unknown>" for an
    // unknown type.
    [[nodiscard]] std::string SqlTypeText(std::int32_t typeID, std::int32_t precision,
                                          std::int32_t scale) const;

    // The TypeID of a name (case ignored); an unknown name throws ErrorKind::Collection.
    [[nodiscard]] std::int32_t SqlTypeIdByName(const std::string& name) const;

    // The names in the catalogue's order.
    [[nodiscard]] const std::vector<std::string>& Names() const { return names_; }

  private:
    std::unordered_map<std::int32_t, SqlTypeInfo> types_;
    std::unordered_map<std::string, std::int32_t> ids_;  // by name in lower case
    std::vector<std::string> names_;
};

}  // namespace tessel
