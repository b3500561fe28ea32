#pragma once

#include <string>

namespace tessel::bench {

// Makes the schema database `file` from the template in the folder `share`, with `tables` tables of 20
// columns, 3 indexes and 2 foreign keys each. Their identifiers count from 1 in the order of the tables. In
// every hundredth table a unique index admits nulls, in another the columns of a key have the wrong types,
// and in another the unique index that keys refer to has no columns.
void GenerateSchema(const std::string& share, const std::string& file, int tables);

}  // namespace tessel::bench
