#pragma once

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// So many links are led around everything while the user waits for a placement, or hardly notices.
inline constexpr std::size_t mostInPlacement = 6000;
inline constexpr std::size_t mostInPassing = 100;

// Draws the links that are not drawn yet with lines along the axes, from border to border, around the boxes
// and beside the other lines; more than `most` are only sketched. Lines to the same box may end as one; lines
// between the same two boxes stay apart. A link from a box to itself becomes a loop at its right. Links
// without their boxes stay undrawn. False, with some links undrawn, when `keepOn`, asked before each link,
// said no.
bool RouteLinks(Diagram& diagram, std::size_t most = mostInPassing, const KeepOn& keepOn = {});

// A line along the axes that looks at no other box.
[[nodiscard]] std::vector<Point> Sketch(const Rect& from, const Rect& to);

// Takes away the lines that do not begin and end at the borders of their boxes.
void DropStrayLines(Diagram& diagram);

}  // namespace tessel::diagram
