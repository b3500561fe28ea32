#pragma once

#include "platform/diagram/content.h"

namespace tessel::diagram {

// What is meant by a place or a direction in a diagram; null for nothing.

// The box at the point, the last one of several.
[[nodiscard]] const Box* BoxAt(const Content& content, Point point);

// The link whose line passes the point nearest, at most `within` units away.
[[nodiscard]] const Link* LinkAt(const Content& content, Point point, double within);

[[nodiscard]] Content::Keys BoxesIn(const Content& content, const Rect& area);  // that lie in it whole

// The nearest box in a direction, seen from the middle of another; for a key that is not there, the first
// box.
enum class Towards { Left, Right, Up, Down };
[[nodiscard]] const Box* Neighbour(const Content& content, const std::string& key, Towards direction);

// The link after or before another, or the first one, of those at the box, around their end.
enum class Walk { Next, Previous };
[[nodiscard]] const Link* LinkBeside(const Content& content, const std::string& box, const std::string& link,
                                     Walk walk);

// The boxes whose captions or comments hold the words, without regard to ASCII case, from the top downwards.
[[nodiscard]] Content::Keys BoxesWith(const Content& content, const std::string& words);

}  // namespace tessel::diagram
