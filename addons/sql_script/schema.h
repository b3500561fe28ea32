#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tessel::sql_script {

// The schema as the user designed it. Tables and columns are named by their places in their lists, from 0.

struct Column {
    std::string name;
    std::string typeName;  // of the catalogue; empty for a type that is not in it
    std::int32_t precision = 0;
    std::int32_t scale = 0;
    bool isNullable = false;
    std::string comment;
    std::optional<std::string> defaultValue;  // as typed
};

struct IndexPart {
    std::size_t column = 0;
    bool isDescending = false;
};

struct Index {
    std::string name;
    bool isUnique = false;
    bool isPrimary = false;
    bool isBroken = false;  // a column of it is not one of the table's
    std::string comment;
    std::vector<IndexPart> parts;
};

// A column of the referencing table and the one of the referenced table that it refers to.
using ColumnPair = std::pair<std::size_t, std::size_t>;

struct Key {
    std::string name;
    std::optional<std::size_t> refTable;
    bool deletesCascade = false;
    bool isBroken = false;  // the referenced table, or a column of a pair, is not there
    std::string comment;
    std::vector<ColumnPair> pairs;  // in the order of the referenced columns
};

struct Table {
    std::string name;
    std::string comment;
    std::string storage;
    std::vector<Column> columns;
    std::vector<Index> indexes;
    std::vector<Key> keys;
};

struct Schema {
    std::string name;           // the project's
    std::vector<Table> tables;  // in the order of their making
};

// Such as "DECIMAL(10,2)"; "?" for an unknown type.
[[nodiscard]] std::string TypeText(const Column& column);

}  // namespace tessel::sql_script
