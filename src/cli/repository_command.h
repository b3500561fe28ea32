#pragma once

#include <string>

#include "cli/session.h"

namespace tessel {

// Fills the workspace's repository from a real database, such as sqlite:PATH, and says on the standard output
// what that changed and what could not be taken as it is. Returns the program's exit code; throws when
// anything fails.
[[nodiscard]] int RepositoryLoadCommand(const SessionOptions& options, const std::string& source);

}  // namespace tessel
