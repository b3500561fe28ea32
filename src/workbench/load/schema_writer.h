#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/db/database.h"
#include "workbench/load/table_definition.h"

namespace tessel::workbench {

// What stands beside a table's definition in its row.
struct TableMarks {
    std::string object;  // the identifier of the repository object
    std::string source;
    DateTime modified;
};

// Writes tables into the repository-wide schema database, within the caller's transaction.
class SchemaWriter {
  public:
    struct Row {
        std::int32_t tabID;
        std::string name;
        std::string object;
        std::string source;
        std::string modified;  // as an ISO date
    };

    explicit SchemaWriter(db::Database& database) : database_(database) {}

    [[nodiscard]] std::vector<Row> Tables() const;

    // Removes the table with all that belongs to it and the keys that refer to it.
    void DropTable(std::int32_t tabID);

    // Writes the table's row and columns, anew or over those of `tabID`, and returns its TabID. Columns keep
    // their identifiers as long as they keep their names.
    std::int32_t WriteTable(std::optional<std::int32_t> tabID, const TableDefinition& table,
                            const TableMarks& marks);

    // Replace the table's indexes, and its keys. `tabIDs` holds the tables' TabIDs in their order.
    void WriteIndexes(std::int32_t tabID, const TableDefinition& table, const std::string& origin);
    void WriteKeys(std::int32_t tabID, const TableDefinition& table, const std::vector<std::int32_t>& tabIDs,
                   const std::string& origin);

  private:
    void DropIndexes(std::int32_t tabID);
    void DropKeys(const std::string& condition);
    void WriteColumns(std::int32_t tabID, const TableDefinition& table, const TableMarks& marks);
    [[nodiscard]] std::vector<std::int32_t> ColumnIDs(std::int32_t tabID) const;  // in their order

    db::Database& database_;
};

}  // namespace tessel::workbench
