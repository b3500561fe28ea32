#pragma once

#include <memory>
#include <optional>
#include <string>

#include "schema/component_state.h"

namespace tessel {

// Which project is meant, and in which language the program speaks.
struct SessionOptions {
    std::string workspace = ".";
    std::optional<std::string> project;
    std::optional<std::string> language;  // "en", "ja" or "ko"; else the locale's
};

// A project of a workspace, with everything that the editor needs of its surroundings. The editor itself is
// not started yet.
struct Session {
    std::shared_ptr<host::Frontend> frontend;
    ComponentState state;
};

// Throws when there is no such workspace or project.
[[nodiscard]] std::unique_ptr<Session> OpenSession(const SessionOptions& options);

// Makes a workspace with one project; the workspace must be a new or an empty folder.
void MakeWorkspace(const std::string& folder, const std::string& project);

}  // namespace tessel
