#pragma once

#include <string>
#include <vector>

#include "sql_script/dialect.h"
#include "sql_script/schema.h"

namespace tessel::sql_script {

// The names that one table and what belongs to it get on the server, in the order of the schema's lists.
struct TableNames {
    std::string table;
    std::vector<std::string> columns;
    std::vector<std::string> indexes;
    std::vector<std::string> keys;
};

// Names for every table of the schema. A name stays as it is where the server takes it. An index or key whose
// name is not the only one of its kind where the server wants it to be gets its table's name before its own;
// a name that is too long is cut and gets a digest of the whole. The same schema gets the same names.
[[nodiscard]] std::vector<TableNames> NameForServer(const Dialect& dialect, const Schema& schema);

}  // namespace tessel::sql_script
