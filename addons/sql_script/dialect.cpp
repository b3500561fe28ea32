#include "sql_script/dialect.h"

#include "sql_script/text_tools.h"

namespace tessel::sql_script {

namespace {

constexpr std::array<Dialect, 3> dialects{
    Dialect{.name = "postgresql",
            .caption = "PostgreSQL",
            .quote = '"',
            .longestName = 63,
            .isNameInBytes = true,
            .reservedPrefix = "",
            .indexNames = NameScope::Schema,
            .primaryNames = NameScope::Schema,
            .keyNames = NameScope::Table,
            .hasInlineIndexes = false,
            .namesPrimary = true,
            .directsPrimary = false,
            .altersKeys = true,
            .takesEmptyTables = true,
            .escapesBackslash = false,
            .largeTypesDiffer = false,
            .comments = CommentForm::Statement,
            .longestTableComment = 0,
            .longestComment = 0,
            .mostColumns = 1600,
            .mostIndexColumns = 32,
            .longestRow = 0,
            .longestIndex = 0,
            .joins = JoinRule::SameKind,
            .tinyintLimit = 32767,
            .tableOptions = "",
            .hint = "",
            .begin = "BEGIN;\n"
                     "SET LOCAL client_encoding = 'UTF8';\n"
                     "SET LOCAL standard_conforming_strings = on;\n",
            .beforeDrop = "",
            .afterDrop = "",
            .end = "COMMIT;\n"},
    Dialect{.name = "mysql",
            .caption = "MySQL / MariaDB",
            .quote = '`',
            .longestName = 64,
            .isNameInBytes = false,
            .reservedPrefix = "",
            .indexNames = NameScope::Table,
            .primaryNames = NameScope::Free,
            .keyNames = NameScope::Schema,
            .hasInlineIndexes = true,
            .namesPrimary = false,
            .directsPrimary = true,
            .altersKeys = true,
            .takesEmptyTables = false,
            .escapesBackslash = true,
            .largeTypesDiffer = true,
            .comments = CommentForm::Clause,
            .longestTableComment = 2048,
            .longestComment = 1024,
            .mostColumns = 1017,
            .mostIndexColumns = 16,
            .longestRow = 65535,
            .longestIndex = 3072,
            .joins = JoinRule::SameType,
            .tinyintLimit = 127,
            .tableOptions = " ENGINE=InnoDB DEFAULT CHARSET=utf8mb4",
            .hint = "",
            .begin = "SET NAMES utf8mb4;\n"
                     "SET @old_sql_mode = @@SESSION.sql_mode;\n"
                     "SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION';\n",
            .beforeDrop = "SET @old_foreign_key_checks = @@SESSION.foreign_key_checks;\n"
                          "SET SESSION foreign_key_checks = 0;\n",
            .afterDrop = "SET SESSION foreign_key_checks = @old_foreign_key_checks;\n",
            .end = "SET SESSION sql_mode = @old_sql_mode;\n"},
    Dialect{.name = "sqlite",
            .caption = "SQLite",
            .quote = '"',
            .longestName = 0,
            .isNameInBytes = false,
            .reservedPrefix = "sqlite_",
            .indexNames = NameScope::Schema,
            .primaryNames = NameScope::Free,
            .keyNames = NameScope::Free,
            .hasInlineIndexes = false,
            .namesPrimary = true,
            .directsPrimary = true,
            .altersKeys = false,
            .takesEmptyTables = false,
            .escapesBackslash = false,
            .largeTypesDiffer = false,
            .comments = CommentForm::Line,
            .longestTableComment = 0,
            .longestComment = 0,
            .mostColumns = 2000,
            .mostIndexColumns = 2000,
            .longestRow = 0,
            .longestIndex = 0,
            .joins = JoinRule::Any,
            .tinyintLimit = 32767,
            .tableOptions = "",
            .hint = "-- Run it with: sqlite3 -bail DATABASE < SCRIPT\n",
            .begin = "BEGIN;\n",
            .beforeDrop = "PRAGMA defer_foreign_keys = ON;\n",
            .afterDrop = "",
            .end = "COMMIT;\n"}};

}  // namespace

const std::array<Dialect, 3>& Dialects() { return dialects; }

const Dialect& DialectOf(Server server) { return dialects[static_cast<std::size_t>(server)]; }

const Dialect* FindDialect(std::string_view name) {
    for (const auto& dialect : dialects)
        if (LowerAscii(name) == dialect.name) return &dialect;
    return nullptr;
}

bool IsServer(const Dialect& dialect, Server server) { return &dialect == &DialectOf(server); }

std::string QuoteName(const Dialect& dialect, std::string_view name) {
    const std::string quote(1, dialect.quote);
    return quote + ReplaceAll(std::string(name), quote, quote + quote) + quote;
}

bool IsLargeType(const Dialect& dialect, std::string_view type) {
    const std::string upper = UpperAscii(type);
    return dialect.largeTypesDiffer &&
           (upper.find("TEXT") != std::string::npos || upper.find("BLOB") != std::string::npos);
}

}  // namespace tessel::sql_script
