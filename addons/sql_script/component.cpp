#include "sql_script/sql_script.h"

TESSEL_COMPONENT({"Tessel.SqlScript", tessel::MakeObject<tessel::sql_script::SqlScript>})
