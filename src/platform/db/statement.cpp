#include "platform/db/statement.h"

#include <sqlite3.h>

#include <limits>
#include <type_traits>
#include <variant>

#include "platform/db/engine_error.h"

namespace tessel::db {
namespace {

constexpr std::size_t mostKept = 64;

int BindValue(sqlite3_stmt* statement, int parameter, const Value& value) {
    return std::visit(
        [&](const auto& content) {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<T, Null>) return sqlite3_bind_null(statement, parameter);
            if constexpr (std::is_same_v<T, std::int32_t>)
                return sqlite3_bind_int(statement, parameter, content);
            if constexpr (std::is_same_v<T, double>)
                return sqlite3_bind_double(statement, parameter, content);
            if constexpr (std::is_same_v<T, std::string>)
                return sqlite3_bind_text64(statement, parameter, content.data(), content.size(),
                                           SQLITE_TRANSIENT, SQLITE_UTF8);
            return SQLITE_MISMATCH;
        },
        value.Contents());
}

Value IntegerValue(sqlite3_int64 integer) {
    if (integer < std::numeric_limits<std::int32_t>::min() ||
        integer > std::numeric_limits<std::int32_t>::max())
        return static_cast<double>(integer);
    return static_cast<std::int32_t>(integer);
}

std::string TextOf(sqlite3_stmt* statement, int position) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, position));
    return bytes ? std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, position)))
                 : std::string();
}

std::vector<std::string> NamesOf(sqlite3_stmt* statement) {
    std::vector<std::string> names;
    for (int i = 0; i < sqlite3_column_count(statement); ++i)
        names.emplace_back(sqlite3_column_name(statement, i));
    return names;
}

}  // namespace

void StatementDeleter::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

std::list<Prepared> StatementCache::Take(std::string_view text, std::string_view sql) {
    std::list<Prepared> taken;
    if (const auto found = byText_.find(text); found != byText_.end()) {
        taken.splice(taken.begin(), free_, found->second);
        byText_.erase(found);
        return taken;
    }
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(connection_, text.data(), static_cast<int>(text.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (code != SQLITE_OK) ThrowLastError(connection_, sql);
    auto& prepared = taken.emplace_back();
    prepared.statement.reset(statement);
    prepared.text = text;
    return taken;
}

void StatementCache::GiveBack(std::list<Prepared> prepared) {
    sqlite3_stmt* const statement = prepared.front().statement.get();
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    if (!byText_.emplace(prepared.front().text, prepared.begin()).second) return;
    free_.splice(free_.begin(), prepared);
    if (free_.size() <= mostKept) return;
    byText_.erase(free_.back().text);
    free_.pop_back();
}

Statement::Statement(StatementCache& cache, std::string_view text, std::string_view sql)
    : cache_(cache),
      prepared_(cache.Take(text, sql)),
      statement_(prepared_.front().statement.get()),
      sql_(sql) {}

Statement::~Statement() { cache_.GiveBack(std::move(prepared_)); }

void Statement::Check(int code) const {
    if (code != SQLITE_OK) ThrowLastError(cache_.Connection(), sql_);
}

void Statement::Bind(int parameter, const Value& value) { Check(BindValue(statement_, parameter, value)); }

void Statement::BindAll(const std::vector<Value>& values) {
    int parameter = 0;
    for (const Value& value : values) Bind(++parameter, value);
}

bool Statement::Step() {
    const int code = sqlite3_step(statement_);
    if (code != SQLITE_ROW && code != SQLITE_DONE) Check(code);
    return code == SQLITE_ROW;
}

bool Statement::IsQuery() const { return sqlite3_column_count(statement_) > 0; }

bool Statement::ChangesRows() const { return sqlite3_stmt_readonly(statement_) == 0; }

Value Statement::Field(int position) const {
    switch (sqlite3_column_type(statement_, position)) {
        case SQLITE_NULL:
            return Null();
        case SQLITE_INTEGER:
            return IntegerValue(sqlite3_column_int64(statement_, position));
        case SQLITE_FLOAT:
            return sqlite3_column_double(statement_, position);
        default:
            return TextOf(statement_, position);
    }
}

const std::shared_ptr<const std::vector<std::string>>& Statement::Fields() {
    auto& fields = prepared_.front().fields;
    if (!fields || fields->size() != static_cast<std::size_t>(sqlite3_column_count(statement_)))
        fields = std::make_shared<const std::vector<std::string>>(NamesOf(statement_));
    return fields;
}

void Statement::AppendRow(std::vector<Value>& values) const {
    const int count = sqlite3_column_count(statement_);
    if (values.capacity() - values.size() < std::size_t(count))
        values.reserve(2 * values.size() + 8 * std::size_t(count));
    for (int i = 0; i < count; ++i) values.push_back(Field(i));
}

}  // namespace tessel::db
