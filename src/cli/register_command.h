#pragma once

#include <optional>
#include <string>

namespace tessel {

// Whose registry is meant.
enum class Registry { User, Installation };

// Enters the classes of a shared library, which is asked for them; or with a `progID` the executable `file`.
// Prints what was entered. Returns the exit code, and throws what stops it.
[[nodiscard]] int RegisterCommand(const std::string& file, const std::optional<std::string>& progID,
                                  Registry registry);

// Takes out the class of that identifier, or the classes of that file, and prints which.
[[nodiscard]] int UnregisterCommand(const std::string& fileOrProgID, Registry registry);

}  // namespace tessel
