#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::db {

class StatementCache;

// What the database declares of one table.
struct TableInfo {
    struct Field {
        std::string name;
        int size = 0;  // of text, in characters; 0 for any length
        bool isText = false;
    };
    struct Index {
        std::string name;
        std::vector<std::size_t> fields;  // positions in `fields` of the table
    };

    std::string name;
    std::vector<Field> fields;
    std::vector<Index> indexes;
    std::optional<std::size_t> identifier;  // the field that the engine numbers

    // Case is ignored; an unknown name throws ErrorKind::Sql.
    [[nodiscard]] std::size_t FieldPosition(std::string_view field) const;
    [[nodiscard]] const Index& IndexNamed(std::string_view index) const;
};

// Throws ErrorKind::Sql when there is no such table.
[[nodiscard]] TableInfo ReadTableInfo(StatementCache& statements, std::string_view table);

}  // namespace tessel::db
