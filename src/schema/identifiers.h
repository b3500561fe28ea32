#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/db/database.h"
#include "schema/component_state.h"

namespace tessel {

// The identifier rule. A text of nothing but double-byte characters and digits keeps them all, its digits in
// the double-byte form. Of any other text it keeps letters, '#', '@' and the national character (of the
// workspace option ObjectComputerEncoding: '\' for "CCSID930", else '$'); digits, '_' and blanks after the
// first character kept; '-' as '_' likewise. `selStart`, unless Missing or Null, is a caret position in
// characters; it moves down by one for each dropped character that it is not before. Throws ErrorKind::Host
// when the workspace options lack ObjectComputerEncoding.
[[nodiscard]] std::string SQLID(const ComponentState& state, std::string_view id, Value& selStart);
[[nodiscard]] std::string SQLID(const ComponentState& state, std::string_view id);

// Keeps the digits 0 to 9; `selStart` as above.
[[nodiscard]] std::string SQLInteger(std::string_view repr, Value& selStart);

// Stores a name in the pending row, if trimming, cutting to the field's size and the identifier rule all
// leave it as it is. Otherwise cancels the pending row and returns false.
[[nodiscard]] bool SetNameField(const ComponentState& state, db::TableSet& row, std::string_view field,
                                const Value& name);

// The first name that is not in use, in the identifier rule's form: `name` itself, or its first 47 characters
// followed by 1, 2, and so on; empty when none of these is a name. An empty `name` becomes `fallback`.
[[nodiscard]] std::string GetFreeName(const ComponentState& state, std::string& name,
                                      std::string_view fallback,
                                      const std::function<bool(const std::string&)>& inUse);

}  // namespace tessel
