#pragma once

#include <optional>
#include <string>

#include "sql_script/dialect.h"
#include "sql_script/schema.h"

namespace tessel::sql_script {

// A text constant.
[[nodiscard]] std::string TextLiteral(const Dialect& dialect, std::string text);

// What follows DEFAULT for the column, whose type the dialect writes as `type`; empty when the column has no
// default. Nothing when what was typed is no value of the type: the text never gets into the script but as
// one constant.
[[nodiscard]] std::optional<std::string> DefaultLiteral(const Dialect& dialect, const Column& column,
                                                        const std::string& type);

}  // namespace tessel::sql_script
