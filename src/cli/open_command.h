#pragma once

#include <optional>
#include <string>

#include "cli/session.h"
#include "ui/main/open_window.h"

namespace tessel {

// Opens the window on the workspace that `path` belongs to (its folder, a folder in it or a file there, such
// as a project's schema database), or else on that of the options. With neither, in a folder that is no
// workspace and on a display, the user is asked for one. Returns the program's exit code; throws when there
// is no such workspace or project.
[[nodiscard]] int OpenCommand(SessionOptions options, const std::optional<std::string>& path,
                              const OpenOptions& window);

}  // namespace tessel
