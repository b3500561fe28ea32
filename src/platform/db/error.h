#pragma once

#include <string>

#include "tessel/error.h"

namespace tessel::db {

// A failure of the database. Sql() is the statement that was run, as the caller wrote it; empty when there
// was none.
class DatabaseError : public Error {
  public:
    DatabaseError(ErrorKind kind, const std::string& message, std::string sql = {})
        : Error(kind, message), sql_(std::move(sql)) {}

    [[nodiscard]] const std::string& Sql() const { return sql_; }

  private:
    std::string sql_;
};

}  // namespace tessel::db
