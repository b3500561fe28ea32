#pragma once

#include "host/frontend.h"

namespace tessel {

// When the repository object was last changed: its attribute "Modified", else "Created", else 1 January 1970.
// An attribute that is no date throws ErrorKind::Conversion.
[[nodiscard]] DateTime ObjectDate(const host::RepositoryObject& object);

}  // namespace tessel
