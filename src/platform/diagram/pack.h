#pragma once

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// Stands rectangles beside and above each other so that the whole is about one and a half times as wide as
// high, large ones first, `gap` apart. Their sizes stay.
void Pack(std::vector<Rect>& rects, double gap);

}  // namespace tessel::diagram
