#pragma once

#include <functional>
#include <string>

#include "host/questions.h"
#include "schema/component_state.h"

// What the rules tell and ask the user, under the title of the application.
namespace tessel {

void Tell(const ComponentState& state, const std::string& text, host::Icon icon,
          const std::string& detail = {});

// Whether the user answers OK and not Cancel.
[[nodiscard]] bool IsConfirmed(const ComponentState& state, const std::string& question, host::Icon icon);

// Whether a file may be written: none is there, or the user lets it be replaced. Throws as files::FileExists
// does.
[[nodiscard]] bool MayReplace(const ComponentState& state, const std::string& path);

// A change of the schema that the user asked for.
struct UserChange {
    int activity;           // the text of the activity log; its %1 is the subject, its %2 the new name
    std::string subject;    // the name of what is changed
    std::string complaint;  // what the user is told when it fails
    host::Icon icon = host::Icon::Critical;
    std::string newName{};
};

// Does `act`. When it gives false or throws an Error, the user gets the complaint, with the reason where it
// is known, and the result is false. Either outcome is logged.
[[nodiscard]] bool DoOrTell(ComponentState& state, const UserChange& change,
                            const std::function<bool()>& act);

// The same, as one transaction: a failure undoes all that was written.
[[nodiscard]] bool WriteOrTell(ComponentState& state, const UserChange& change,
                               const std::function<bool()>& write);

}  // namespace tessel
