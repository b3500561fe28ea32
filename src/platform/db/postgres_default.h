#pragma once

#include <string_view>

#include "platform/db/default_text.h"

namespace tessel::db {

// Reads the expression that the server shows: of "'abc'::character varying" the text abc, of "(0)::numeric"
// the number 0, of "'\xcafe'::bytea" 0xCAFE. The words for the moment at which a row is made, such as now(),
// are no expressions, except where they become a text. `type` is the column's, as the server shows it.
[[nodiscard]] DefaultReading PostgresDefault(std::string_view expression, std::string_view type);

// Whether it takes its value from a sequence.
[[nodiscard]] bool IsFromSequence(std::string_view expression);

}  // namespace tessel::db
