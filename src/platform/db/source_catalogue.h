#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tessel::db {

// What a real database of any kind says of its tables, in its own words.

struct SourceColumn {
    std::string name;
    std::string type;  // as declared, such as "VARCHAR(30)"; may be empty
    bool isNullable = true;
    std::optional<std::string> defaultValue{};  // a text without its quotes, anything else as it is written
    std::string comment{};
};

struct SourceIndex {
    struct Column {
        std::string name;
        bool isDescending = false;
    };

    std::string name;  // empty for one that the database made without a name
    bool isUnique = false;
    bool isPrimary = false;
    std::vector<Column> columns{};
    std::string comment{};
};

struct SourceKey {
    struct Pair {
        std::string column;
        std::string refColumn;
    };

    std::string name;  // empty where the definition gives none
    std::string refTable;
    bool deletesCascade = false;
    std::vector<Pair> pairs{};
    std::string comment{};
};

struct SourceTable {
    std::string name;
    bool isView = false;
    std::vector<SourceColumn> columns{};
    std::vector<SourceIndex> indexes{};  // the primary key's first
    std::vector<SourceKey> keys{};
    std::string comment{};
};

// Something of the source that cannot be taken as it is.
struct SourceNote {
    std::string what;    // a name, such as TABLE.COLUMN
    std::string remark;  // a clause that follows the name and a colon
};

struct SourceCatalogue {
    std::vector<SourceTable> tables{};  // in the order of their making
    std::vector<SourceNote> notes{};
};

}  // namespace tessel::db
