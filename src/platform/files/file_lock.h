#pragma once

#include <chrono>
#include <string>

#include "platform/files/descriptor.h"

namespace tessel::files {

// Holds the open file against every other program until it is closed. False, errno saying why (EWOULDBLOCK
// where another program holds it), when it is not free within `patience`.
[[nodiscard]] bool Hold(const Descriptor& file, std::chrono::milliseconds patience);

// Holds the lock file at `path` against every other program, and every other lock of this one, while it
// lives. The file is made when it is not there, and stays. Throws ErrorKind::Busy when it is not free within
// `patience`.
class FileLock {
  public:
    explicit FileLock(const std::string& path, std::chrono::milliseconds patience = std::chrono::seconds(10));

  private:
    Descriptor file_;
};

}  // namespace tessel::files
