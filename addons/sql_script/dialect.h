#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tessel::sql_script {

// Where a name must differ from the other names of its sort.
enum class NameScope {
    Schema,  // in the whole schema
    Table,   // in its table
    Free,    // nowhere
};

enum class CommentForm {
    Statement,  // COMMENT ON TABLE ...
    Clause,     // COMMENT '...' within the definition
    Line,       // -- ...
};

// Which columns a foreign key may join.
enum class JoinRule {
    Any,
    SameKind,  // types that compare, or that convert to the referenced one
    SameType,  // the very type; texts of any length
};

// How one server's SQL differs from another's.
struct Dialect {
    const char* name;     // in parameters and in the table of types
    const char* caption;  // for people
    char quote;           // around names
    std::size_t longestName;
    bool isNameInBytes;  // else in characters
    const char* reservedPrefix;
    NameScope indexNames;  // Schema: together with the names of tables
    NameScope primaryNames;
    NameScope keyNames;
    bool hasInlineIndexes;  // within CREATE TABLE
    bool namesPrimary;      // else its name means nothing
    bool directsPrimary;    // a primary key may have descending columns
    bool altersKeys;        // a key may be added to a table that is there
    bool takesEmptyTables;  // without columns
    bool escapesBackslash;  // in texts
    bool largeTypesDiffer;  // TEXT and BLOB types: no index, and a default only as an expression
    CommentForm comments;
    std::size_t longestTableComment;  // in characters; 0: any
    std::size_t longestComment;
    std::size_t mostColumns;
    std::size_t mostIndexColumns;
    std::size_t longestRow;  // in bytes; 0: any
    std::size_t longestIndex;
    JoinRule joins;
    int tinyintLimit;          // the largest TINYINT
    const char* tableOptions;  // after the definition
    const char* hint;          // lines before the script's parts, and around them
    const char* begin;
    const char* beforeDrop;
    const char* afterDrop;
    const char* end;
};

enum class Server { PostgreSql, MySql, Sqlite };

[[nodiscard]] const std::array<Dialect, 3>& Dialects();
[[nodiscard]] const Dialect& DialectOf(Server server);
// None when the name is no dialect's.
[[nodiscard]] const Dialect* FindDialect(std::string_view name);

[[nodiscard]] bool IsServer(const Dialect& dialect, Server server);

// The name in quotes, so that it comes back letter for letter whatever it is.
[[nodiscard]] std::string QuoteName(const Dialect& dialect, std::string_view name);

// Whether the dialect counts this type of its own among the TEXT and BLOB types.
[[nodiscard]] bool IsLargeType(const Dialect& dialect, std::string_view type);

}  // namespace tessel::sql_script
