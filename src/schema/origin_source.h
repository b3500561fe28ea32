#pragma once

#include <memory>
#include <string>

#include "host/frontend.h"

namespace tessel {

// The source text behind the repository object that was looked up last.
struct OriginSourceState {
    std::string lastIdentifier;
    std::shared_ptr<host::OriginSource> source;  // none while none is loaded
    std::string path;                            // of the loaded source; empty while none is loaded
};

// Finds and loads the source text behind a repository object; for a data port, behind the first object that
// reads or else writes it, whose identifier is handed back. Returns whether a source is loaded; asking again
// for the same object costs nothing. An identifier that is not in the repository throws ErrorKind::Host.
[[nodiscard]] bool LocateOriginSource(OriginSourceState& state, host::Frontend& frontend,
                                      std::string& identifier);

}  // namespace tessel
