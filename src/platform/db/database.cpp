#include "platform/db/database.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <span>

#include "platform/db/dialect.h"
#include "platform/db/engine.h"
#include "platform/db/engine_error.h"
#include "platform/db/open_checks.h"
#include "platform/db/table_set_state.h"
#include "platform/files/file_service.h"

namespace tessel::db {
namespace {

// A journal that stays is as durable as one that is deleted, and several times faster; the engine takes
// another mode where it must.
void ChooseJournal(sqlite3* connection) {
    sqlite3_exec(connection, "pragma journal_mode=persist; pragma synchronous=full", nullptr, nullptr,
                 nullptr);
}

Connection OpenChecked(const std::string& path, std::chrono::milliseconds busyWait) {
    RefuseMissingFile(path);
    Connection connection = Connect(path, busyWait);
    RefuseForeignHeader(connection.get(), path);
    RefuseDamagedContent(connection.get(), path);
    RefuseUnwritable(connection.get(), path);
    ChooseJournal(connection.get());
    return connection;
}

// Measures what a query gives.
class QueryMeter {
  public:
    explicit QueryMeter(const QueryLimit& most) : most_(most) {}

    // Whether one more row is within the limit.
    bool Take(std::span<const Value> row) {
        for (const Value& value : row) bytes_ += SizeOf(value);
        return ++rows_ <= most_.rows && bytes_ <= most_.bytes;
    }

    [[noreturn]] void Refuse(std::string_view sql) const {
        throw DatabaseError(ErrorKind::Sql,
                            fmt::format("The query gives more than {} rows or {} MiB; ask for less at once.",
                                        most_.rows, most_.bytes / (1024 * 1024)),
                            std::string(sql));
    }

  private:
    static std::size_t SizeOf(const Value& value) {
        constexpr std::size_t fieldSize = 8;
        const auto* text = value.As<std::string>();
        return fieldSize + (text ? text->size() : 0);
    }

    const QueryLimit& most_;
    std::size_t rows_ = 0;
    std::size_t bytes_ = 0;
};

}  // namespace

std::shared_ptr<Database> Database::Open(const std::string& path, std::chrono::milliseconds busyWait) {
    const std::string native = files::NativePath(path);
    auto engine = std::make_unique<Engine>(native, OpenChecked(native, busyWait));
    return std::shared_ptr<Database>(new Database(std::move(engine)));
}

Database::Database(std::unique_ptr<Engine> engine) : engine_(std::move(engine)) {}
Database::~Database() = default;

const std::string& Database::Path() const { return engine_->path; }

int Database::Execute(std::string_view sql) {
    const Rewritten rewritten = Rewrite(sql);
    Statement statement = engine_->Prepare(rewritten.text, sql);
    if (statement.IsQuery())
        throw DatabaseError(ErrorKind::Sql, "A query cannot be executed, only opened.", std::string(sql));
    statement.BindAll(rewritten.parameters);
    statement.Step();
    engine_->rowsTouched = sqlite3_changes(engine_->connection.get());
    return engine_->rowsTouched;
}

int Database::RowsTouched() const { return engine_->rowsTouched; }

std::int64_t Database::ChangeCount() const { return engine_->ChangeCount(); }

Query Database::Select(std::string_view sql, const QueryLimit& most) {
    const Rewritten rewritten = Rewrite(sql);
    Statement statement = engine_->Prepare(rewritten.text, sql);
    if (!statement.IsQuery() || statement.ChangesRows())
        throw DatabaseError(ErrorKind::Sql, "A statement that changes rows cannot be opened.",
                            std::string(sql));
    statement.BindAll(rewritten.parameters);
    Query::Rows rows;
    for (QueryMeter meter(most); statement.Step();) {
        statement.AppendRow(rows.values);
        if (!meter.Take(std::span(rows.values).last(statement.Fields()->size()))) meter.Refuse(sql);
    }
    rows.fields = statement.Fields();
    return Query(std::move(rows), std::string(sql));
}

TableSet Database::OpenTable(std::string_view table) {
    return TableSet(std::make_unique<TableSet::State>(*engine_, engine_->Table(table)));
}

std::string Database::Copy() {
    engine_->RefuseWhileAsking("copy");
    sqlite3* const connection = engine_->connection.get();
    // The engine does not read a file that has left its journal behind. Nobody changes such a file any more.
    if (HasMoved(connection)) return ReadWholeFile(connection, engine_->path);
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> content(
        sqlite3_serialize(connection, "main", &size, 0), &sqlite3_free);
    if (!content) ThrowLastError(connection, {});
    const auto* first = reinterpret_cast<const char*>(content.get());
    return {first, static_cast<std::size_t>(size)};
}

std::shared_ptr<Database> Database::Snapshot() {
    engine_->RefuseWhileAsking("snapshot");
    auto snapshot = std::make_unique<Engine>(engine_->path, ConnectInMemory(engine_->path));
    sqlite3* const memory = snapshot->connection.get();
    sqlite3_db_config(memory, SQLITE_DBCONFIG_MAINDBNAME, snapshot->path.c_str());  // for its messages
    constexpr int allPages = -1;
    sqlite3_backup* const copy = sqlite3_backup_init(memory, "main", engine_->connection.get(), "main");
    const bool isWhole = copy && sqlite3_backup_step(copy, allPages) == SQLITE_DONE;
    if (copy) sqlite3_backup_finish(copy);  // which tells `memory` what went wrong
    if (!isWhole) ThrowLastError(memory, {});
    return std::shared_ptr<Database>(new Database(std::move(snapshot)));
}

void Database::RefreshCache() { engine_->tables.clear(); }

}  // namespace tessel::db
