#pragma once

#include "sql_script/dialect.h"
#include "sql_script/server_schema.h"
#include "sql_script/type_table.h"

namespace tessel::sql_script {

// Puts the schema into what the server takes. What it does not take is left out or changed, with a remark on
// its table.
[[nodiscard]] ServerSchema PlanSchema(const Dialect& dialect, const TypeTable& types, const Schema& schema);

}  // namespace tessel::sql_script
