#pragma once

#include <string>

struct sqlite3;

// What is looked at before a file counts as a schema database. Each refusal throws DatabaseError of its own
// kind; a refused file is left as it was.
namespace tessel::db {

void RefuseMissingFile(const std::string& path);

// Empty, Jet, NotADatabase, Foreign, Newer, by the first bytes of the file.
void RefuseForeignHeader(sqlite3* connection, const std::string& path);

// Damaged, NotADatabase, Foreign, by what is stored in it. Fields are not looked at.
void RefuseDamagedContent(sqlite3* connection, const std::string& path);

// ReadOnly, Busy, Full, Io.
void RefuseUnwritable(sqlite3* connection, const std::string& path);

// The bytes of the file that is open, wherever it is by now.
[[nodiscard]] std::string ReadWholeFile(sqlite3* connection, const std::string& path);

}  // namespace tessel::db
