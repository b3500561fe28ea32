#pragma once

#include <string_view>

namespace tessel::sql_script {

// What the values of a type are.
enum class TypeKind { Whole, Exact, Float, Text, Binary, Boolean, Date, Time, Timestamp };

// The kind of a type of the catalogue; any other type is taken for a text.
[[nodiscard]] TypeKind KindOf(std::string_view typeName);

}  // namespace tessel::sql_script
