#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>

// Bare access to a database, which bypasses the editor and is as durable.
namespace tessel::bench {

class Connection {
  public:
    explicit Connection(const std::string& file) {
        Check(sqlite3_open(file.c_str(), &connection_));
        Run("pragma journal_mode=persist; pragma synchronous=full");
    }
    ~Connection() { sqlite3_close(connection_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Run(const std::string& sql) {
        Check(sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr));
    }
    void Check(int code) const {
        if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW)
            throw std::runtime_error(sqlite3_errmsg(connection_));
    }
    [[nodiscard]] sqlite3* Handle() const { return connection_; }
    [[nodiscard]] int RowsTouched() const { return sqlite3_total_changes(connection_); }

  private:
    sqlite3* connection_ = nullptr;
};

// A prepared statement that is run again and again.
class Statement {
  public:
    Statement(const Connection& connection, const std::string& sql) : connection_(connection) {
        connection.Check(sqlite3_prepare_v2(connection.Handle(), sql.c_str(), -1, &statement_, nullptr));
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void Bind(int position, int value) { connection_.Check(sqlite3_bind_int(statement_, position, value)); }
    void Bind(int position, const std::string& value) {
        connection_.Check(sqlite3_bind_text(statement_, position, value.c_str(), -1, SQLITE_TRANSIENT));
    }
    void Run() {
        while (Next()) continue;
        connection_.Check(sqlite3_reset(statement_));
    }
    [[nodiscard]] bool Next() {
        const int code = sqlite3_step(statement_);
        connection_.Check(code);
        return code == SQLITE_ROW;
    }
    // The fields of the row as text.
    [[nodiscard]] std::string Row() const {
        std::string row;
        for (int i = 0; i < sqlite3_column_count(statement_); ++i)
            if (const auto* text = sqlite3_column_text(statement_, i))
                row.append(reinterpret_cast<const char*>(text)).append(" ");
        return row;
    }

  private:
    const Connection& connection_;
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace tessel::bench
