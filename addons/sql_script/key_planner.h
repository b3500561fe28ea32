#pragma once

#include "sql_script/dialect.h"
#include "sql_script/server_names.h"
#include "sql_script/server_schema.h"

namespace tessel::sql_script {

// Adds the keys that the server takes to the planned tables, which must be complete but for these; a remark
// says why one is left out.
void PlanKeys(const Dialect& dialect, const Schema& schema, const std::vector<TableNames>& names,
              ServerSchema& planned);

}  // namespace tessel::sql_script
