#pragma once

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// Gives every box a place of its own and draws every link whose boxes are there, so that what is linked
// stands close together, referenced boxes to the left. The sizes of the boxes stay. False, with the diagram
// as it was, when `keepOn` said no.
bool PlaceBoxes(Diagram& diagram, const KeepOn& keepOn = {});

// Puts the boxes where `placed` has them, by their keys, and draws the links as it does, where they still
// join the same boxes. Boxes that it does not have go below the rest.
void TakePlaces(Diagram& diagram, const Diagram& placed);

}  // namespace tessel::diagram
