#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tessel/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace tessel::db {

struct StatementDeleter {
    void operator()(sqlite3_stmt* statement) const;
};

struct Prepared {
    std::string text;
    std::unique_ptr<sqlite3_stmt, StatementDeleter> statement;
    // The names of its result, once they were asked for.
    std::shared_ptr<const std::vector<std::string>> fields;
};

// The prepared statements of a connection by their text. The 64 that were used last are kept.
class StatementCache {
  public:
    explicit StatementCache(sqlite3* connection) : connection_(connection) {}

    [[nodiscard]] sqlite3* Connection() const { return connection_; }

    // A list of one: a statement of this text that nobody else has until it is given back.
    [[nodiscard]] std::list<Prepared> Take(std::string_view text, std::string_view sql);
    void GiveBack(std::list<Prepared> prepared);

    [[nodiscard]] std::size_t Count() const { return free_.size(); }

  private:
    sqlite3* connection_;
    std::list<Prepared> free_;  // the one used last comes first
    std::unordered_map<std::string_view, std::list<Prepared>::iterator> byText_;
};

// One run of a prepared statement, given back to the cache at its end.
class Statement {
  public:
    // `sql` is the statement as its caller wrote it, for messages; it must outlive this.
    Statement(StatementCache& cache, std::string_view text, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Gives the parameters, counted from 1, their values: Null, int32, double or text.
    void Bind(int parameter, const Value& value);
    void BindAll(const std::vector<Value>& values);

    bool Step();  // true when there is a row, false at the end

    [[nodiscard]] bool IsQuery() const;
    [[nodiscard]] bool ChangesRows() const;
    [[nodiscard]] Value Field(int position) const;  // of the current row, counted from 0
    [[nodiscard]] const std::shared_ptr<const std::vector<std::string>>& Fields();
    void AppendRow(std::vector<Value>& values) const;  // every field of the current row

  private:
    void Check(int code) const;

    StatementCache& cache_;
    std::list<Prepared> prepared_;
    sqlite3_stmt* statement_;
    std::string_view sql_;
};

}  // namespace tessel::db
