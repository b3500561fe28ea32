#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/db/postgres_place.h"

struct pg_conn;
struct pg_result;

namespace tessel::db {

// The rows of a query, forwards only; fields are named as the statement names them.
class PostgresRows {
  public:
    explicit PostgresRows(pg_result* result);

    bool Next();  // false at the end
    [[nodiscard]] bool IsNull(const char* field) const;
    [[nodiscard]] bool IsTrue(const char* field) const;
    [[nodiscard]] std::string Text(const char* field) const;  // valid UTF-8; empty for Null

  private:
    [[nodiscard]] int Place(const char* field) const;

    std::unique_ptr<pg_result, void (*)(pg_result*)> result_;
    int row_ = -1;
};

// A connection to a PostgreSQL server. Every failure is a DatabaseError whose message never holds a password:
// Io for a server that cannot be reached, Missing for a database that is not there, Argument for a refused
// login, Busy for a server that takes no one now.
class PostgresConnection {
  public:
    // Waits for the server as long as the option connect_timeout says, else 10 seconds.
    explicit PostgresConnection(const PostgresPlace& place);

    // Runs one statement; its parameters stand in it as $1, $2 and so on.
    PostgresRows Run(const std::string& sql, const std::vector<std::string>& parameters = {});

    // The server and the database, in the form of a connection; the same however it was connected to.
    [[nodiscard]] std::string Place() const;
    [[nodiscard]] std::string DatabaseName() const;
    [[nodiscard]] int ServerVersion() const;  // such as 150018 for 15.18

  private:
    std::unique_ptr<pg_conn, void (*)(pg_conn*)> connection_;
};

}  // namespace tessel::db
