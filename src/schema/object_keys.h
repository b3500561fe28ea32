#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

// The keys under which lists, the diagram and collections know the objects of the schema.
namespace tessel {

[[nodiscard]] inline std::string TableKey(std::int32_t tabID) { return "t" + std::to_string(tabID); }
[[nodiscard]] inline std::string ColumnKey(std::int32_t columnID) { return "c" + std::to_string(columnID); }
[[nodiscard]] inline std::string ForeignKeyKey(std::int32_t keyID) { return "k" + std::to_string(keyID); }

// The identifier in a key of one letter and a decimal number; -1 for any other text.
[[nodiscard]] inline std::int32_t IdentifierOf(std::string_view key) {
    std::int32_t identifier = -1;
    const char* end = key.data() + key.size();
    if (key.empty() || std::from_chars(key.data() + 1, end, identifier).ptr != end) return -1;
    return identifier;
}

}  // namespace tessel
