#pragma once

#include <string>
#include <tuple>

namespace tessel::workbench {

// Tells one state of a file from the next: device, inode, size, and the time of its last change.
using FileStamp = std::tuple<unsigned long, unsigned long, long, long, long>;

// The file's stamp as it stands on the disk; a file that is not there throws ErrorKind::File.
[[nodiscard]] FileStamp StampOf(const std::string& path);

}  // namespace tessel::workbench
