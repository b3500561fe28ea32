#pragma once

#include <memory>
#include <string>

#include "schema/component_state.h"

namespace tessel {

struct OpenOptions {
    std::string picture;  // where a PNG of the window is saved instead of running it; empty: nowhere
};

// Whether there is a display to show a window on.
[[nodiscard]] bool HasDisplay();

// Opens the editor's window for the host's current project and runs it until it is closed. Returns the exit
// code of the program: 0, or 2 when the editor could not start, there is no display, or the picture could not
// be saved; the reason has then been shown, without a display and for a picture on stderr. A picture needs no
// display. `state` holds its texts already; its questions and its main window are set here.
[[nodiscard]] int RunWindow(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend,
                            const OpenOptions& options);

// The same within an application that is there already: run, or saved as a picture.
[[nodiscard]] int ShowWindow(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend);
[[nodiscard]] int SavePicture(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend,
                              const std::string& picture);

}  // namespace tessel
