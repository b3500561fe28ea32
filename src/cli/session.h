#pragma once

#include <memory>
#include <optional>
#include <string>

#include "schema/component_state.h"

namespace tessel {

// Which project is meant, and in which language the program speaks.
struct SessionOptions {
    std::optional<std::string> workspace;  // else the current folder
    std::optional<std::string> project;
    std::optional<std::string> language;  // "en", "ja" or "ko"; else the locale's
};

// A project of a workspace, with everything that the editor needs of its surroundings. The editor itself is
// not started yet.
struct Session {
    std::shared_ptr<host::Frontend> frontend;
    ComponentState state;
};

// A folder of the installation, found from where the program is: "share" or "libexec".
[[nodiscard]] std::string InstalledFolder(const char* kind);

[[nodiscard]] std::shared_ptr<const text::Texts> TextsFor(const SessionOptions& options);

// Throws when there is no such workspace or project.
[[nodiscard]] std::unique_ptr<Session> OpenSession(const SessionOptions& options);

// Makes a workspace with one project; the workspace must be a new or an empty folder.
void MakeWorkspace(const std::string& folder, const std::string& project);

}  // namespace tessel
