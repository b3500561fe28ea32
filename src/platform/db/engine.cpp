#include "platform/db/engine.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <utility>

#include "platform/db/engine_error.h"
#include "platform/text/utf8.h"

namespace tessel::db {
namespace {

constexpr int longestText = 64 * 1024 * 1024;  // bytes of a text, a row or a statement

void Configure(sqlite3* connection, std::chrono::milliseconds busyWait) {
    sqlite3_extended_result_codes(connection, 1);
    sqlite3_busy_timeout(connection, static_cast<int>(busyWait.count()));
    sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, longestText);
    sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, longestText);
    sqlite3_limit(connection, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
}

// `name` is what the engine knows the path by.
Connection ConnectTo(const std::string& name, const std::string& path, std::chrono::milliseconds busyWait) {
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(name.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Connection connection(opened);
    if (code != SQLITE_OK) ThrowOpenError(opened, path, AdviceFor(ErrorKind::ReadOnly));
    Configure(opened, busyWait);
    return connection;
}

// While it lives, the question is not there.
class NotAsking {
  public:
    explicit NotAsking(std::function<bool()>& question)
        : question_(question), held_(std::exchange(question, nullptr)) {}
    ~NotAsking() { question_ = std::move(held_); }
    NotAsking(const NotAsking&) = delete;
    NotAsking& operator=(const NotAsking&) = delete;

  private:
    std::function<bool()>& question_;
    std::function<bool()> held_;
};

}  // namespace

void ConnectionDeleter::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

Database::Engine::~Engine() {
    // Best effort: while another process uses the journal it stays.
    sqlite3_busy_timeout(connection.get(), 0);
    sqlite3_exec(connection.get(), "pragma journal_mode=delete", nullptr, nullptr, nullptr);
}

Connection Connect(const std::string& path, std::chrono::milliseconds busyWait) {
    // An absolute path never reads as a URI or as one of the engine's special names.
    return ConnectTo(std::filesystem::absolute(path).string(), path, busyWait);
}

Connection ConnectInMemory(const std::string& path) {
    return ConnectTo(":memory:", path, std::chrono::milliseconds(0));
}

Statement Database::Engine::Prepare(std::string_view text, std::string_view sql) {
    RefuseWhileAsking(sql);
    RefuseLostTransaction(sql);
    return Statement(statements, text, sql);
}

bool Database::Engine::InTransaction() const { return sqlite3_get_autocommit(connection.get()) == 0; }

void Database::Engine::RefuseLostTransaction(std::string_view sql) const {
    if (depth == 0 || InTransaction()) return;
    // Nothing has run since the failure, so the engine still tells it, or SQLITE_OK where it has forgotten
    // it.
    const int code = sqlite3_errcode(connection.get());
    const std::string reason =
        code == SQLITE_OK ? std::string() : std::string(" (") + sqlite3_errmsg(connection.get()) + ")";
    throw DatabaseError(ErrorKind::Io,
                        "All changes of this action to the database \"" + path +
                            "\" were undone after an earlier failure" + reason +
                            ", so it cannot go on; do it again.",
                        std::string(sql));
}

void Database::Engine::RefuseWhileAsking(std::string_view sql) const {
    if (isAsking)
        throw DatabaseError(ErrorKind::Busy,
                            "The database \"" + path + "\" is busy with another step; try again afterwards.",
                            std::string(sql));
}

void Database::Engine::Control(const std::string& sql) {
    RefuseWhileAsking(sql);
    const NotAsking notAsking(goesOn);
    Statement statement(statements, sql, sql);
    statement.Step();
}

std::int64_t Database::Engine::ChangeCount() const {
    return sqlite3_total_changes64(connection.get()) - changesUndone;
}

void Database::Engine::ForgetChangesSince(std::int64_t count) { changesUndone += ChangeCount() - count; }

std::shared_ptr<const TableInfo> Database::Engine::Table(std::string_view name) {
    RefuseWhileAsking(name);
    auto& info = tables[text::LowerAscii(name)];
    if (!info) info = std::make_shared<const TableInfo>(ReadTableInfo(statements, name));
    return info;
}

Value Database::Engine::LastIdentifier(const std::string& table) {
    Statement statement = Prepare("select seq from sqlite_sequence where name=?");
    statement.Bind(1, table);
    return statement.Step() ? statement.Field(0) : Value();
}

std::int32_t Database::Engine::ReserveIdentifier(const std::string& table) {
    // A reservation that was rolled back has left this process all the same.
    auto& last = reserved[table];
    while (true) {
        const Value stored = LastIdentifier(table);
        const auto* number = stored.As<std::int32_t>();
        if (!number || std::max(*number, last) == std::numeric_limits<std::int32_t>::max())
            throw DatabaseError(ErrorKind::Damaged, "The database \"" + path +
                                                        "\" has no identifiers left for the table " + table +
                                                        "; restore it from a backup.");
        const std::int32_t next = std::max(*number, last) + 1;
        Statement statement = Prepare("update sqlite_sequence set seq=? where name=? and seq=?");
        statement.BindAll({next, table, stored});
        statement.Step();
        const bool wasFirst = sqlite3_changes(connection.get()) == 1;  // no other process came between
        if (wasFirst) return last = next;
    }
}

}  // namespace tessel::db
