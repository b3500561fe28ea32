#pragma once

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// Has Graphviz place the boxes and draw the links between them. False, with the diagram as it was, when it
// cannot.
[[nodiscard]] bool PlaceByGraphviz(Diagram& diagram);

}  // namespace tessel::diagram
