#pragma once

#include <functional>
#include <string>

#include "sql_script/dialect.h"
#include "sql_script/server_schema.h"

namespace tessel::sql_script {

struct ScriptOptions {
    bool dropsTables = false;  // tables of the same names go first
    bool hasComments = true;
};

// The whole script, which depends on nothing but these. `begins` is told each table's place before it is
// written.
[[nodiscard]] std::string WriteScript(const Dialect& dialect, const ServerSchema& schema,
                                      const ScriptOptions& options,
                                      const std::function<void(std::size_t)>& begins);

}  // namespace tessel::sql_script
