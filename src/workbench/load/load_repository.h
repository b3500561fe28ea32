#pragma once

#include <string>
#include <vector>

#include "tessel/date_time.h"
#include "workbench/load/free_names.h"
#include "workbench/load/load_source.h"
#include "workbench/repository_file.h"

namespace tessel::workbench {

// Where a load goes.
struct LoadTarget {
    std::string folder;  // of the workspace
    RepositoryFile& file;
    std::string templateDatabase;
    NameRule nameRule;
    DateTime now;
};

// What a load did, by the tables' names in the schema database.
struct LoadOutcome {
    std::size_t tables = 0;
    std::size_t views = 0;
    std::vector<std::string> added{};
    std::vector<std::string> changed{};
    std::vector<std::string> removed{};
    std::vector<db::SourceNote> notes{};  // what was not taken as it is
};

// Brings the workspace's repository in line with a real database: the repository-wide schema database
// DBSchema.mdb, made from the template when it is not there, and an object of the type "TABLE" for each table
// and view. Objects tell by their attribute "LoadedFrom" which source they are of; those of others, and their
// tables, are not touched, and a table whose name one of them bears is left out. An object keeps its
// identifier as long as its source has a table of that name, and gets it back when the table returns; its
// attribute "Modified" moves on when the definition of the table changes. An object whose table is gone keeps
// neither its table nor its "Name".
//
// The database is changed in one transaction, and all objects together. Throws, with everything as it was,
// when either fails. Only when the objects fail at the very end, after the database was kept, do they stay as
// they were alone; the next load makes up for that.
LoadOutcome LoadRepository(const Source& source, const LoadTarget& target);

}  // namespace tessel::workbench
