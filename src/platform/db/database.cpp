#include "platform/db/database.h"

#include <sqlite3.h>

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

Query Database::Select(std::string_view sql) {
    const Rewritten rewritten = Rewrite(sql);
    Statement statement = engine_->Prepare(rewritten.text, sql);
    if (!statement.IsQuery() || statement.ChangesRows())
        throw DatabaseError(ErrorKind::Sql, "A statement that changes rows cannot be opened.",
                            std::string(sql));
    statement.BindAll(rewritten.parameters);
    Query::Rows rows;
    while (statement.Step()) statement.AppendRow(rows.values);
    rows.fields = statement.Fields();
    return Query(std::move(rows), std::string(sql));
}

TableSet Database::OpenTable(std::string_view table) {
    return TableSet(std::make_unique<TableSet::State>(*engine_, engine_->Table(table)));
}

void Database::RefreshCache() { engine_->tables.clear(); }

}  // namespace tessel::db
