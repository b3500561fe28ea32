#pragma once

#include <string>

namespace tessel::bench {

// How many findings a verification has in the generated schema database `file`. It reads each of the six
// tables once, in the order of what its rows belong to, puts them together in memory, and stores nothing:
// what a verification is measured against.
[[nodiscard]] int CountFindings(const std::string& file);

}  // namespace tessel::bench
