#pragma once

#include <optional>
#include <string>

#include "cli/session.h"
#include "ui/main/open_window.h"

namespace tessel {

// Opens the window on the workspace that `path` belongs to (its folder, a folder in it or a file there, such
// as a project's schema database), or else on that of the options. On a display the user is asked for what is
// missing: with neither, in a folder that is no workspace, for one; and for one of several projects. Returns
// the program's exit code; what is wrong with the workspace is said on stderr and, on a display, in a box.
[[nodiscard]] int OpenCommand(const SessionOptions& options, const std::optional<std::string>& path,
                              const OpenOptions& window);

}  // namespace tessel
