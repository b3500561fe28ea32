#pragma once

#include "host/frontend.h"

namespace tessel {

// Where the editor's own options stand in the host's option trees.
inline constexpr const char* optionCase = "//CASE[@ID='VNT']";

// Whether the linked tables are brought up to date when the project is opened; true when no option says
// otherwise.
[[nodiscard]] bool ImportAtStart(host::Frontend& frontend);

}  // namespace tessel
