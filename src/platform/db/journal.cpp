#include "platform/db/journal.h"

#include <string_view>

#include "platform/files/file_service.h"
#include "tessel/error.h"

namespace tessel::db {

void RefuseOrphanedJournal(const std::string& path) {
    constexpr std::string_view liveJournal = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
    const std::string journal = path + "-journal";
    if (files::FileExists(journal) && files::ReadFile(journal).starts_with(liveJournal))
        throw Error(ErrorKind::File,
                    files::NativePath(journal) +
                        " holds changes of a database that is not there. Put the database back, or "
                        "move the journal away to start with a new one.");
}

}  // namespace tessel::db
