#pragma once

#include <string>
#include <string_view>

#include "platform/db/error.h"

struct sqlite3;

namespace tessel::db {

// The kind of failure that a result code of the engine stands for.
[[nodiscard]] ErrorKind KindOfCode(int code);

// What a person can do about a failure of this kind; empty where the message says it all.
[[nodiscard]] std::string_view AdviceFor(ErrorKind kind);

// Whether the file that is open is no longer the one at its path.
[[nodiscard]] bool HasMoved(sqlite3* connection);

// Throws why the file at the path was not opened; `advice` is what a person can do about it.
[[noreturn]] void ThrowOpenError(sqlite3* connection, const std::string& path, std::string_view advice);

// Throws the last failure of a connection that was opened. `sql` is the statement as its caller wrote it.
[[noreturn]] void ThrowLastError(sqlite3* connection, std::string_view sql);

}  // namespace tessel::db
