#pragma once

#include "platform/db/database.h"
#include "platform/diagram/diagram.h"

namespace tessel {

// The tables as boxes, in name order and without a place yet, and the foreign keys as links from the
// referencing to the referenced table, not drawn yet. Keys are "t" and TabID, "k" and KeyID.
[[nodiscard]] diagram::Diagram SchemaDiagram(db::Database& database);

}  // namespace tessel
