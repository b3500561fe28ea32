#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessel::db {

// A default as a person would have written it, from the expression that the server shows for it: of
// "'abc'::character varying" the text abc, of "(0)::numeric" the number 0; what is computed, such as now(),
// as it stands. Nothing for NULL.
[[nodiscard]] std::optional<std::string> PostgresDefault(std::string_view expression);

// Whether it takes its value from a sequence.
[[nodiscard]] bool IsFromSequence(std::string_view expression);

}  // namespace tessel::db
