#include "fuzz/raw_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <regex>

namespace tessel::fuzz {
namespace {

constexpr int stepsBetweenLooks = 1000;
constexpr int mostLooks = 300;
int looksLeft = mostLooks;

int IsBudgetSpent(void*) { return --looksLeft < 0; }

int Allow(void*, int action, const char*, const char* function, const char*, const char*) {
    constexpr std::array<std::string_view, 11> refused{
        "zeroblob",  "randomblob",   "printf", "format",           "replace",
        "hex",       "group_concat", "quote",  "json_group_array", "json_group_object",
        "string_agg"};
    if (action == SQLITE_ATTACH) return SQLITE_DENY;
    if (action != SQLITE_FUNCTION || !function) return SQLITE_OK;
    return std::ranges::find(refused, function) == refused.end() ? SQLITE_OK : SQLITE_DENY;
}

int LimitConnection(sqlite3* connection, const char**, const void*) {
    sqlite3_progress_handler(connection, stepsBetweenLooks, IsBudgetSpent, nullptr);
    return sqlite3_set_authorizer(connection, Allow, nullptr);
}

struct StatementCloser {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementCloser>;

Statement Prepare(sqlite3* connection, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement, nullptr);
    return Statement(statement);
}

void BindField(sqlite3_stmt* statement, int place, const RawField& field) {
    if (const auto* integer = std::get_if<std::int64_t>(&field))
        sqlite3_bind_int64(statement, place, *integer);
    if (const auto* real = std::get_if<double>(&field)) sqlite3_bind_double(statement, place, *real);
    if (const auto* text = std::get_if<std::string>(&field))
        sqlite3_bind_text64(statement, place, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    if (const auto* bytes = std::get_if<std::vector<char>>(&field))
        sqlite3_bind_blob64(statement, place, bytes->data(), bytes->size(), SQLITE_TRANSIENT);
}

}  // namespace

void RenewEngineBudget() {
    using Extension = void (*)();
    [[maybe_unused]] static const int registered =
        sqlite3_auto_extension(reinterpret_cast<Extension>(&LimitConnection));
    looksLeft = mostLooks;
}

void RawDatabase::Closer::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

RawDatabase::RawDatabase(const std::string& file) {
    sqlite3* connection = nullptr;
    sqlite3_open(file.c_str(), &connection);
    connection_.reset(connection);
    Run("pragma synchronous=off");
}

void RawDatabase::Run(const std::string& sql) {
    sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr);
}

void RawDatabase::Insert(std::string_view table, const std::vector<RawField>& fields) {
    std::string sql = "insert or ignore into " + std::string(table) + " values (";
    for (std::size_t i = 0; i < fields.size(); ++i) sql += i == 0 ? "?" : ",?";
    const Statement statement = Prepare(connection_.get(), sql + ")");
    int place = 0;
    for (const auto& field : fields) BindField(statement.get(), ++place, field);
    sqlite3_step(statement.get());
}

void RawDatabase::DropRules() {
    const std::regex rules(R"( NOT NULL| CHECK \(.*\)(?=,?\n)|UNIQUE (?=INDEX))");
    Run("pragma writable_schema=on");
    const Statement read =
        Prepare(connection_.get(), "select rowid, sql from sqlite_schema where sql is not null");
    const Statement write = Prepare(connection_.get(), "update sqlite_schema set sql = ?2 where rowid = ?1");
    std::vector<std::pair<std::int64_t, std::string>> loose;
    while (sqlite3_step(read.get()) == SQLITE_ROW)
        loose.emplace_back(
            sqlite3_column_int64(read.get(), 0),
            std::regex_replace(reinterpret_cast<const char*>(sqlite3_column_text(read.get(), 1)), rules, ""));
    for (const auto& [row, sql] : loose) {
        BindField(write.get(), 1, row);
        BindField(write.get(), 2, sql);
        sqlite3_step(write.get());
        sqlite3_reset(write.get());
    }
    Run("pragma writable_schema=reset");
}

}  // namespace tessel::fuzz
