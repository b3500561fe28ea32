#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tessel::db {

// Where a PostgreSQL database is, and which of its schemas is meant.
struct PostgresPlace {
    std::vector<std::pair<std::string, std::string>> options;  // keyword and value, as libpq knows them
    std::string schema = "public";
};

// Reads a connection as libpq takes it, either "host=/run/pg dbname=shop" or "postgresql://user@host/shop",
// which may also hold "schema". Throws ErrorKind::Argument, without a word of the connection, for it may hold
// a password.
[[nodiscard]] PostgresPlace ReadPostgresPlace(const std::string& connection);

// "keyword=value" as it stands in a connection of the first form.
[[nodiscard]] std::string PostgresOption(const std::string& keyword, const std::string& value);

}  // namespace tessel::db
