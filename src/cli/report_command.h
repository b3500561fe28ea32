#pragma once

#include <optional>
#include <string>

#include "cli/session.h"

namespace tessel {

// Writes the project's page into the folder `out`, or else the workspace's Output, and prints where the page
// is. What the generator has to tell goes to the error output. Returns the program's exit code; throws what
// stops it.
[[nodiscard]] int ReportCommand(const SessionOptions& options, const std::optional<std::string>& out);

}  // namespace tessel
