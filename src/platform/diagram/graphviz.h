#pragma once

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// Has Graphviz place the boxes of each diagram, in columns: a link leads from its box to one in a column
// further to the left, wherever no circle of links forbids it. Nothing but the places of the boxes changes.
// False, with everything as it was, when Graphviz failed or `keepOn` said no.
[[nodiscard]] bool PlaceByGraphviz(std::vector<Diagram>& parts, const KeepOn& keepOn);

}  // namespace tessel::diagram
