#pragma once

#include <string>

namespace tessel::db {

// To be called before a new database is put where none is. A journal with changes in it belongs to the
// database that it stands beside, and a new one must not get them: throws ErrorKind::File when there is one
// beside `path`.
void RefuseOrphanedJournal(const std::string& path);

}  // namespace tessel::db
