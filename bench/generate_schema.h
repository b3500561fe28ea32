#pragma once

#include <memory>
#include <string>

#include "schema/component_state.h"

namespace tessel::bench {

constexpr int columnsPerTable = 8;

// Makes the schema database `file` from the template in the folder `share`, with `tables` tables of 8
// columns and 3 indexes each; every table has a key, and three of ten a second one, of two columns. Their
// identifiers count from 1 in the order of the tables. In every hundredth table a unique index admits nulls,
// in another the columns of a key have the wrong types, and in another the unique index that keys refer to
// has no columns.
void GenerateSchema(const std::string& share, const std::string& file, int tables);

// Makes a workspace in the folder `path` whose project Main has such a schema.
std::shared_ptr<host::Frontend> GenerateWorkspace(const std::string& share, const std::string& path,
                                                  int tables);

[[nodiscard]] std::string SchemaFile(const std::string& workspace);

// Starts the editor on the project. The caller has given the state what it needs.
void OpenEditor(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend);

}  // namespace tessel::bench
