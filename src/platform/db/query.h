#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tessel/value.h"

namespace tessel::db {

// What a query may give.
struct QueryLimit {
    std::size_t rows = std::numeric_limits<std::size_t>::max();
    std::size_t bytes = std::numeric_limits<std::size_t>::max();  // of its texts, and 8 for each field
};

// The rows of one query, read forwards. Before the first Next there is no current row.
class Query {
  public:
    struct Rows {
        std::shared_ptr<const std::vector<std::string>> fields;
        std::vector<Value> values;  // row after row
    };

    Query(Rows rows, std::string sql) : rows_(std::move(rows)), sql_(std::move(sql)) {}

    bool Next();  // false at the end

    // The current row's field by name (case ignored; of equal names the first). An unknown name throws
    // ErrorKind::Sql.
    [[nodiscard]] const Value& operator[](std::string_view field) const;

    // The field converted; Null becomes 0, false or the empty text.
    [[nodiscard]] std::int32_t Integer(std::string_view field) const;
    [[nodiscard]] bool Boolean(std::string_view field) const;
    [[nodiscard]] std::string Text(std::string_view field) const;

    [[nodiscard]] const std::vector<std::string>& Fields() const { return *rows_.fields; }

  private:
    Rows rows_;
    std::string sql_;
    std::size_t current_ = 0;  // from 1; 0 before the first Next
};

}  // namespace tessel::db
