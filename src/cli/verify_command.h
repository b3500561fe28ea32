#pragma once

#include "cli/session.h"

namespace tessel {

// Verifies the project's schema (when it is verified already, takes what was found then) and writes the
// findings to the standard output: a line each and their number, or with `json` one array. Returns the exit
// code: 0 when there are none, 1 when there are. Throws when the project cannot be opened or verified.
[[nodiscard]] int VerifyCommand(const SessionOptions& options, bool json);

}  // namespace tessel
