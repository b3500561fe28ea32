#pragma once

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// Draws the links that are not drawn yet with lines along the axes, from border to border; a link from a box
// to itself becomes a loop at its corner. Links without their boxes stay undrawn.
void RouteLinks(Diagram& diagram);

}  // namespace tessel::diagram
