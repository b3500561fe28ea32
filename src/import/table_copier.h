#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "host/frontend.h"
#include "import/import_outcome.h"
#include "platform/db/database.h"
#include "tessel/vntws.h"

namespace tessel {

// A table of the repository-wide schema database and the repository object that it describes.
struct MatchedTable {
    std::int32_t tabID;
    std::shared_ptr<host::RepositoryObject> object;
};

// Copies tables from the repository-wide schema database into the project's, and remembers which became
// which. What the workspace refuses is left out and noted in the outcome; every other failure is thrown.
class TableCopier {
  public:
    TableCopier(VNTWS& workspace, db::Database& project, db::Database& repository, ImportOutcome& outcome)
        : workspace_(workspace), project_(project), repository_(repository), outcome_(outcome) {}

    // Adds the table that `source` stands on, with its columns and indexes, under a free name, linked to the
    // object. Returns that name; nothing when the table was refused.
    std::optional<std::string> CopyTable(const db::TableSet& source, const host::RepositoryObject& object);

    // Adds the foreign keys whose tables were both copied.
    void CopyForeignKeys();

  private:
    using IdentifierMap = std::unordered_map<std::int32_t, std::int32_t>;
    struct KeyPair {
        std::int32_t column;
        std::int32_t refColumn;
        Value origin;
    };

    void CopyColumns(std::int32_t source, std::int32_t target, const std::string& tableName);
    void CopyIndexes(std::int32_t source, std::int32_t target, const Value& primaryIndex);
    void CopyIndex(const db::Query& index, std::int32_t target, bool isPrimary);
    void CopyIndexColumns(std::int32_t source, std::int32_t target);
    void CopyForeignKey(const db::Query& key, std::int32_t table, std::int32_t refTable);
    [[nodiscard]] std::vector<KeyPair> NewPairs(std::int32_t source) const;  // of a key in the repository's
    void AddForeignKeyColumns(std::int32_t keyID, const std::vector<KeyPair>& pairs);
    [[nodiscard]] std::int32_t NewColumn(std::int32_t source) const;  // throws when it was not copied

    VNTWS& workspace_;
    db::Database& project_;
    db::Database& repository_;
    ImportOutcome& outcome_;
    IdentifierMap newTables_;
    IdentifierMap newColumns_;
};

}  // namespace tessel
