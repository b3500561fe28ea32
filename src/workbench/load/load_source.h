#pragma once

#include <string>

#include "platform/db/source_catalogue.h"

namespace tessel::workbench {

// A real database as the user names it, KIND:PLACE, such as sqlite:/data/shop.db or
// postgresql:host=/run/pg dbname=shop.
struct Source {
    std::string name;  // the same for the same database wherever the command is given
    db::SourceCatalogue catalogue;
};

// Reads the catalogue of a database. A file inside the workspace's folder is named from there on, any other
// by its full path; a database on a server by the server, never with a password. Throws ErrorKind::Argument
// for a kind that is unknown, and what the reader throws.
[[nodiscard]] Source ReadSource(const std::string& source, const std::string& workspaceFolder);

}  // namespace tessel::workbench
