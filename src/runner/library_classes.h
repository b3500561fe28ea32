#pragma once

#include <string>
#include <vector>

namespace tessel {

// The identifiers of the classes that a shared library has, as the library itself says in a process of its
// own, which gets ten seconds for it. Throws ErrorKind::Component, with the reason, when it does not.
[[nodiscard]] std::vector<std::string> LibraryClasses(const std::string& library,
                                                      const std::string& programFolder);

}  // namespace tessel
