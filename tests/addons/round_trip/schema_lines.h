#pragma once

#include <string>
#include <vector>

namespace tessel::test {

enum class PartComments { Taken, LeftOut };  // those of indexes and keys

// What a schema database says, a line for each table, column, index and key, in an order that depends on the
// names alone. The names of indexes are left out: a server may ask for others.
[[nodiscard]] std::vector<std::string> SchemaLines(const std::string& file, PartComments comments);

}  // namespace tessel::test
