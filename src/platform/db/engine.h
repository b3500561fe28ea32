#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/db/catalogue.h"
#include "platform/db/database.h"
#include "platform/db/statement.h"

struct sqlite3;

namespace tessel::db {

struct ConnectionDeleter {
    void operator()(sqlite3* connection) const;
};
using Connection = std::unique_ptr<sqlite3, ConnectionDeleter>;

// Opens an existing file without reading it.
[[nodiscard]] Connection Connect(const std::string& path, std::chrono::milliseconds busyWait);

// An empty database in memory, for what is at the path.
[[nodiscard]] Connection ConnectInMemory(const std::string& path);

// What stands behind an open Database and its record sets.
struct Database::Engine {
    Engine(std::string databasePath, Connection opened)
        : path(std::move(databasePath)), connection(std::move(opened)), statements(connection.get()) {}
    ~Engine();  // takes the journal file away
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    // A statement in the engine's own words; `sql` is what its caller wrote. Throws when the transaction that
    // it would belong to was undone by the engine, for it would then be kept alone.
    [[nodiscard]] Statement Prepare(std::string_view text, std::string_view sql);
    [[nodiscard]] Statement Prepare(std::string_view text) { return Prepare(text, text); }

    [[nodiscard]] std::shared_ptr<const TableInfo> Table(std::string_view name);

    // An identifier that no row of the table has had, and that is given to no other row.
    [[nodiscard]] std::int32_t ReserveIdentifier(const std::string& table);

    // As stored; Null when nothing is stored of the table.
    [[nodiscard]] Value LastIdentifier(const std::string& table);

    // Begins, ends or undoes a transaction, whatever `goesOn` says.
    void Control(const std::string& sql);
    [[nodiscard]] bool InTransaction() const;  // as the engine sees it
    void RefuseLostTransaction(std::string_view sql) const;
    void RefuseWhileAsking(std::string_view sql) const;

    [[nodiscard]] std::int64_t ChangeCount() const;
    void ForgetChangesSince(std::int64_t count);  // they were undone

    std::string path;
    Connection connection;
    StatementCache statements;
    std::unordered_map<std::string, std::shared_ptr<const TableInfo>> tables;  // by name in lower case
    std::unordered_map<std::string, std::int32_t> reserved;                    // the last identifier by table
    int depth = 0;                                                             // of open Transactions
    int rowsTouched = 0;
    std::int64_t changesUndone = 0;  // rows
    std::function<bool()> goesOn;    // of the Interruptible that lives
    bool isAsking = false;           // it, in the middle of a statement
};

}  // namespace tessel::db
