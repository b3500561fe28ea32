#pragma once

#include <string>

#include "runner/add_on_menu.h"
#include "schema/component_state.h"

namespace tessel {

// Looks on while a tool is waited for.
class RunWatch {
  public:
    virtual ~RunWatch() = default;
    // Called about every 50 ms; false stops the tool.
    virtual bool GoesOn() = 0;
};

// What becomes of the changes of a tool that fails.
enum class OnFailure {
    AskUser,  // Yes or No
    Keep,     // unless it was stopped
    Drop,
};

struct RunSettings {
    std::string folder;  // the tool's current folder
    RunWatch& watch;
    OnFailure onFailure = OnFailure::AskUser;
};

enum class RunEnd { Succeeded, NotVerified, Failed };

// Runs a tool on the open project. `entry.caption` is the text of the chosen menu item. Where the entry says
// so, the schema is verified first, and while there are errors nothing runs. All that the tool changes is one
// transaction, kept when it succeeds; `result` is then what it gave, and the table that it asked for is
// selected. The user is told what stopped it, in place of an exception. The class is sought in the user's
// registry, then in the installation's.
[[nodiscard]] RunEnd RunAddOn(ComponentState& state, const AddOnEntry& entry, const RunSettings& settings,
                              Value& result);

}  // namespace tessel
