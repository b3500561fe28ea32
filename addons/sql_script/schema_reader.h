#pragma once

#include "sql_script/schema.h"
#include "tessel/object.h"

namespace tessel::sql_script {

// Reads the schema from the schema database, each of its tables once. The name is left empty.
[[nodiscard]] Schema ReadSchema(Object& database);

}  // namespace tessel::sql_script
