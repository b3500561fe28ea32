#pragma once

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// Takes boxes whose middles stand in columns: aligns each column at its left, and gives the links room
// between the columns, as much as have to go up or down there.
void SpaceColumns(Diagram& diagram);

}  // namespace tessel::diagram
