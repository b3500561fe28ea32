#pragma once

#include <string>

#include "platform/db/source_catalogue.h"

namespace tessel::db {

// Reads the catalogue of any SQLite database, as it is at one moment; the file is opened read-only. Virtual
// tables, views that do not work and indexes on expressions are left out with a note. Throws DatabaseError,
// naming the file, when it is missing or empty, no SQLite database, or cannot be read.
[[nodiscard]] SourceCatalogue ReadSqliteCatalogue(const std::string& path);

}  // namespace tessel::db
