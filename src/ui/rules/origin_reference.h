#pragma once

#include <string>

#include "host/frontend.h"

namespace tessel {

// The origin reference that the browser keeps for a table: "text:" and the attribute "Origin" of the host's
// object that the table was taken from, empty when that object is gone; `cvrl` for a table that was not taken
// from an object of the type "TABLE".
[[nodiscard]] std::string OriginReference(host::Frontend& frontend, const std::string& repObjId,
                                          const std::string& cvrl);

}  // namespace tessel
