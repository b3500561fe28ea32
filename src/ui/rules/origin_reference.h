#pragma once

#include <string>

#include "host/frontend.h"

namespace tessel {

// The origin reference that the browser keeps for a table: "text:" and the attribute "Origin" of the host's
// object of the type "TABLE" that it was taken from, empty when the host knows that type but cannot give the
// object; `cvrl` for a table that was taken from no such object, or from one whose type the host does not
// know.
[[nodiscard]] std::string OriginReference(host::Frontend& frontend, const std::string& repObjId,
                                          const std::string& cvrl);

}  // namespace tessel
