#pragma once

#include "cli/session.h"

namespace tessel {

// Brings the project's linked tables up to date with the repository and says on the standard output what that
// changed. Returns the program's exit code: 0, or 2 when the run failed; throws when the project cannot be
// opened.
[[nodiscard]] int ImportCommand(const SessionOptions& options);

}  // namespace tessel
