#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessel::db {

// The names that a CREATE TABLE statement gives its constraints; empty where it gives none.
struct ConstraintNames {
    struct Unique {
        std::vector<std::string> columns;
        std::string name;
    };

    std::string primaryKey;
    std::vector<Unique> uniques;
    std::vector<std::string> foreignKeys;  // every foreign key's, in the order of definition
};

// Reads the statement as the engine keeps it, so it is known to be well formed.
[[nodiscard]] ConstraintNames ReadConstraintNames(std::string_view createTable);

}  // namespace tessel::db
