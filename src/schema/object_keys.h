#pragma once

#include <cstdint>
#include <string>

// The keys under which lists, the diagram and collections know the objects of the schema.
namespace tessel {

[[nodiscard]] inline std::string TableKey(std::int32_t tabID) { return "t" + std::to_string(tabID); }
[[nodiscard]] inline std::string ColumnKey(std::int32_t columnID) { return "c" + std::to_string(columnID); }
[[nodiscard]] inline std::string ForeignKeyKey(std::int32_t keyID) { return "k" + std::to_string(keyID); }

}  // namespace tessel
