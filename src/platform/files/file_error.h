#pragma once

#include <string>
#include <string_view>

// Both throw "The file PATH cannot be read: REASON." for `thing` "file", `action` "read" and the errno value
// `cause`.
namespace tessel::files {

// ErrorKind::File.
[[noreturn]] void ThrowReadError(std::string_view thing, const std::string& path, std::string_view action,
                                 int cause);

// ErrorKind::Full or ReadOnly where that is the cause, else File.
[[noreturn]] void ThrowWriteError(std::string_view thing, const std::string& path, std::string_view action,
                                  int cause);

}  // namespace tessel::files
