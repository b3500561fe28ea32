#pragma once

#include <string>
#include <string_view>

#include "sql_script/dialect.h"
#include "sql_script/script_writer.h"
#include "sql_script/texts.h"

namespace tessel::sql_script {

// What the tool is asked to do.
struct Parameters {
    const Dialect* dialect = nullptr;  // none: not given
    std::string file;                  // empty: not given
    ScriptOptions options;
};

// Reads "dialect=sqlite;file=schema.sql;drop=yes;comments=no". Throws ErrorKind::Argument for anything else.
[[nodiscard]] Parameters ReadParameters(std::string_view text, Language language);

}  // namespace tessel::sql_script
