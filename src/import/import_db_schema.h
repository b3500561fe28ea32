#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "import/import_outcome.h"
#include "import/table_copier.h"
#include "schema/component_state.h"

namespace tessel {

// Brings the tables that the project takes from the host's repository up to date with the repository-wide
// schema database, DBSchema.mdb in the workspace's folder.
class modImportDBSchema {
  public:
    explicit modImportDBSchema(ComponentState& state) : state_(state) {}

    // Whether there is a repository-wide schema database at all.
    [[nodiscard]] bool HasRepository() const;

    // Compares the project's tables that are linked to a repository object of the type "TABLE" with the
    // objects of that type that are no views and have a table of the same name in the repository-wide schema
    // database. While each is there and none is older than its object, nothing happens. Otherwise all linked
    // tables are dropped, and all tables of the objects are added under free names, in the order of the
    // objects, with their columns, indexes and the foreign keys among them. Tables without a link stay.
    //
    // Never throws: a failure ends the run with a message to the user. The run is one transaction that is
    // kept also when it fails, so that tables dropped (all or none) or added by then stay so, while a crash
    // leaves the schema as it was. The window's progress is started and not finished.
    ImportOutcome SyncDBSchema();

    // Whether a project table that is linked to the object and was made at `created` (a date or Null) must be
    // imported again: the last run found no table for the object, or the object has changed since. False for
    // an object of another type, and when anything fails.
    [[nodiscard]] bool IsTableOutdated(const std::string& repObjId, const Value& created) const;

  private:
    struct LinkedTable {
        std::int32_t tabID;
        std::string name;
        std::string object;
        Value created;
    };

    [[nodiscard]] std::string RepositoryFilename() const;
    void Run(ImportOutcome& outcome);
    void Match(db::Database& repository, ImportOutcome& outcome);
    void RunKept(db::Database& repository, ImportOutcome& outcome);
    void Sync(db::Database& repository, ImportOutcome& outcome);
    // The project's tables that are linked to an object of the type "TABLE".
    [[nodiscard]] std::vector<LinkedTable> LinkedTables() const;
    [[nodiscard]] bool IsUpToDate() const;
    void Drop(ImportOutcome& outcome);
    void AddTables(db::Database& repository, TableCopier& copier);

    ComponentState& state_;
    std::unordered_map<std::string, std::int32_t> tableOfObject_;  // TabID in the repository-wide database
    std::vector<MatchedTable> matched_;                            // in the order of the objects
};

}  // namespace tessel
