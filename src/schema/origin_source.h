#pragma once

#include <memory>
#include <string>

#include "host/frontend.h"

namespace tessel {

// The repository object that was looked up last, and the source that was loaded last: it stays open until
// another takes its place, or nothing is asked for.
struct OriginSourceState {
    std::string lastIdentifier;
    bool isFound = false;  // whether `source` is the one behind that object
    std::shared_ptr<host::OriginSource> source;
    std::string path;  // of the source; empty when the last lookup found none
};

// Finds and loads the source text behind a repository object; for a data port, behind the first object that
// reads or else writes it, whose identifier is handed back. Returns whether there is one; asking again for
// the same object costs nothing. An identifier that is not in the repository throws ErrorKind::Host.
[[nodiscard]] bool LocateOriginSource(OriginSourceState& state, host::Frontend& frontend,
                                      std::string& identifier);

}  // namespace tessel
