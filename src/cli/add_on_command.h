#pragma once

#include <string>

#include "cli/session.h"

namespace tessel {

// What is run, and how.
struct AddOnRunOptions {
    std::string progID;
    std::string param;
    std::string answers = "[]";  // to its questions, a JSON array as in a call line
    bool verify = false;         // first
    bool keep = false;           // what it changed, also when it fails
};

// Runs a tool on the project, in the current folder; its messages and its result go to the standard output.
// An interrupt stops it. Returns the exit code: 0 when it succeeded, 1 when it did not run because the schema
// has errors, 2 when it failed. Throws when the project cannot be opened.
[[nodiscard]] int AddOnRunCommand(const SessionOptions& options, const AddOnRunOptions& run);

// Prints the classes that add-ons can be made of. Returns the exit code: 2 when a registry cannot be used.
[[nodiscard]] int AddOnListCommand();

}  // namespace tessel
