#pragma once

#include <string>

namespace tessel {

// Why a file or folder is not to be run or believed: somebody other than its owner, the user and root may
// replace it. A sentence that names what to mend; empty for one that may be trusted. `path` is absolute; what
// is not there, or cannot be examined, is not trusted either.
[[nodiscard]] std::string WhyNotTrusted(const std::string& path);

// Throws ErrorKind::Component with that sentence.
void RefuseUntrusted(const std::string& path);

}  // namespace tessel
