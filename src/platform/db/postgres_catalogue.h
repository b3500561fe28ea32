#pragma once

#include <string>

#include "platform/db/source_catalogue.h"

namespace tessel::db {

struct PostgresSource {
    std::string
        place;  // server, database and schema, without user and password; the same for the same schema
    SourceCatalogue catalogue;
};

// Reads the catalogue of one schema of a PostgreSQL database as it is at one moment, in a transaction that
// changes nothing. The schema is the one that the connection names by "schema", otherwise "public". Foreign
// tables, partitions, and indexes on expressions are left out, with a note. Throws DatabaseError as the
// connection does, and ErrorKind::Missing for a schema that is not there.
[[nodiscard]] PostgresSource ReadPostgresCatalogue(const std::string& connection);

}  // namespace tessel::db
