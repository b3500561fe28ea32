#pragma once

namespace tessel {

// The exit code of a command that found errors in the schema.
inline constexpr int findingsCode = 1;

// The exit code of a command that could not do its work.
inline constexpr int failureCode = 2;

}  // namespace tessel
