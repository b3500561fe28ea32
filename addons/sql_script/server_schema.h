#pragma once

#include <string>
#include <vector>

#include "sql_script/schema.h"
#include "sql_script/texts.h"

namespace tessel::sql_script {

// The schema as one server takes it: every name, type and default as the script writes it, but for the quotes
// around names. Tables are named by their places in the schema's list.

struct ServerColumn {
    std::string name;
    std::string type;
    std::string defaultValue;  // what follows DEFAULT; empty for none
    bool isNullable;
    std::string comment;
};

struct ServerIndex {
    std::string name;
    bool isUnique;
    bool isPrimary;
    std::vector<IndexPart> parts;
    std::string comment;
};

struct ServerKey {
    std::string name;
    std::size_t refTable;
    bool deletesCascade;
    bool isLater;  // added when every table is there
    std::vector<ColumnPair> pairs;
    std::string comment;
};

struct ServerTable {
    std::string name;
    bool isLeftOut = false;
    std::string comment;
    std::string storage;
    std::vector<ServerColumn> columns;
    std::vector<ServerIndex> indexes;
    std::vector<ServerKey> keys;
    std::vector<RemarkText> remarks;
};

struct ServerSchema {
    std::string name;
    std::vector<ServerTable> tables;
    std::vector<std::size_t> order;  // in which the tables are made
};

// How many there are without those that are left out.
[[nodiscard]] std::size_t CountTables(const ServerSchema& schema);
[[nodiscard]] std::size_t CountKeys(const ServerSchema& schema);
// All remarks, in the order of the tables.
[[nodiscard]] std::vector<const RemarkText*> RemarksOf(const ServerSchema& schema);

}  // namespace tessel::sql_script
