#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/db/error.h"
#include "platform/db/query.h"
#include "platform/db/table_set.h"

namespace tessel::db {

// An open schema database. Statements are written in the schema editor's own dialect (dialect.h says what it
// adds to plain SQL). Every failure throws DatabaseError.
class Database {
  public:
    // Opens an existing schema database for reading and writing; several processes may have it open. Refuses,
    // each with its own ErrorKind and leaving the file alone, what is Missing, Empty, NotADatabase, Jet,
    // Damaged, Foreign, Newer, ReadOnly or Busy. Everything that finds the file busy waits `busyWait` before
    // it throws.
    [[nodiscard]] static std::shared_ptr<Database> Open(
        const std::string& path, std::chrono::milliseconds busyWait = std::chrono::seconds(5));

    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    [[nodiscard]] const std::string& Path() const;

    // Runs one statement that changes rows; returns how many it touched.
    int Execute(std::string_view sql);
    [[nodiscard]] int RowsTouched() const;  // by the last Execute

    // A count that grows with each row changed here, and falls back as a Transaction undoes its part.
    [[nodiscard]] std::int64_t ChangeCount() const;

    // Runs one query and copies its rows, so that the tables may change while they are read. More than `most`
    // throws ErrorKind::Sql.
    [[nodiscard]] Query Select(std::string_view sql, const QueryLimit& most = {});

    // A record set on the table (name in any letter case). It must not outlive the database.
    [[nodiscard]] TableSet OpenTable(std::string_view table);

    // All that the database holds now, as the content of a file of its own; also while its own file is gone.
    [[nodiscard]] std::string Copy();

    // All that the database holds now, in memory: nobody else changes it, and it keeps nobody from the file,
    // which its messages go on naming. Not for the middle of a transaction that has changed rows.
    [[nodiscard]] std::shared_ptr<Database> Snapshot();

    // Forgets what was read before, so that changes by other processes show at the next read.
    void RefreshCache();

    struct Engine;  // within this room

  private:
    explicit Database(std::unique_ptr<Engine> engine);
    friend class Interruptible;
    friend class Transaction;
    std::unique_ptr<Engine> engine_;
};

// All changes between construction and Commit are kept together or not at all. A transaction inside another
// one keeps or undoes its own part.
class Transaction {
  public:
    // Waits for a busy file, then throws ErrorKind::Busy.
    explicit Transaction(Database& database);
    ~Transaction();  // undoes what was not committed
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();  // a failure throws, and everything is undone

    // Whether the engine has undone it already, after a failure or an interruption.
    [[nodiscard]] bool IsLost() const;

  private:
    void Undo() noexcept;

    Database::Engine& engine_;
    int depth_;  // 0 for the outermost
    std::int64_t changesBefore_;
    bool open_ = true;
};

}  // namespace tessel::db
