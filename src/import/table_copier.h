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
    // object, and enters it in the outcome. False when the table was refused.
    bool CopyTable(const db::TableSet& source, const host::RepositoryObject& object);

    // Adds the foreign keys whose tables were both copied.
    void CopyForeignKeys();

  private:
    struct NewTable {
        std::int32_t tabID;
        std::string name;
    };
    struct IndexColumn {
        std::int32_t column;
        Value direction;
        Value position;
        Value origin;
    };
    struct KeyPair {
        std::int32_t column;
        std::int32_t refColumn;
        Value origin;
    };

    void CopyColumns(std::int32_t source, const NewTable& target);
    void CopyIndexes(std::int32_t source, const NewTable& target, const Value& primaryIndex);
    void CopyIndex(const db::Query& index, const NewTable& target, bool isPrimary);
    void AddIndexColumns(std::int32_t indexID, const std::vector<IndexColumn>& columns);
    void CopyForeignKey(const db::Query& key, std::int32_t table, std::int32_t refTable);
    // What the repository's index or key uses, as it is called here; nothing when one of the columns was
    // refused.
    [[nodiscard]] std::optional<std::vector<IndexColumn>> NewIndexColumns(std::int32_t source) const;
    [[nodiscard]] std::optional<std::vector<KeyPair>> NewPairs(std::int32_t source) const;
    void AddForeignKeyColumns(std::int32_t keyID, const std::vector<KeyPair>& pairs);
    // Nothing when the column was refused; one that the repository does not hold is thrown.
    [[nodiscard]] std::optional<std::int32_t> NewColumn(std::int32_t source) const;

    VNTWS& workspace_;
    db::Database& project_;
    db::Database& repository_;
    ImportOutcome& outcome_;
    std::unordered_map<std::int32_t, std::int32_t> newTables_;
    std::unordered_map<std::int32_t, std::optional<std::int32_t>> newColumns_;
};

}  // namespace tessel
