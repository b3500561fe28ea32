#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/db/source_catalogue.h"
#include "workbench/load/free_names.h"
#include "workbench/load/sql_type_table.h"

namespace tessel::workbench {

// A table of a source in the words of the schema database. Columns and tables are named by their places in
// their lists, counted from 0.
struct TableDefinition {
    struct Column {
        std::string name;
        ColumnType type;
        bool isNullable;
        std::optional<std::string> defaultValue;
        std::string comment;
    };
    struct Index {
        struct Part {
            std::size_t column;
            bool isDescending;
        };
        std::string name;
        bool isUnique;
        bool isPrimary;
        std::vector<Part> parts;
        std::string comment;
    };
    struct Key {
        struct Pair {
            std::size_t column;
            std::size_t refColumn;
        };
        std::string name;
        std::size_t refTable;
        bool deletesCascade;
        std::vector<Pair> pairs;
        std::string comment;
    };

    std::string sourceName;
    std::string name;
    bool isView = false;
    std::string comment{};
    std::vector<Column> columns{};
    std::vector<Index> indexes{};
    std::vector<Key> keys{};
};

// Puts tables into the words of the schema database, each under its name of `names`; those without a name
// are left out. What changes on the way, or cannot be taken, is noted.
[[nodiscard]] std::vector<TableDefinition> DefineTables(const std::vector<db::SourceTable>& tables,
                                                        const std::vector<std::optional<std::string>>& names,
                                                        const SqlTypeTable& types, const NameRule& rule,
                                                        std::vector<db::SourceNote>& notes);

// A text that changes whenever something of the table's definition does, its own name aside.
[[nodiscard]] std::string Fingerprint(const TableDefinition& table,
                                      const std::vector<TableDefinition>& tables);

}  // namespace tessel::workbench
