#pragma once

#include <string>
#include <vector>

// An entity diagram as a drawing: what stands where. Whoever shows one, in a window or on a page, draws from
// this.
namespace tessel::diagram {

// Coordinates grow to the right and downwards. Two units are as wide as a character of a caption, four as
// high as its line.
struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    bool operator==(const Rect&) const = default;
};

struct Box {
    std::string key;  // unlike that of every other box
    std::string caption{};
    std::string comment{};
    Rect rect{};
};

struct Link {
    std::string key;
    std::string caption{};
    std::string from{};  // keys of boxes
    std::string to{};
    std::vector<Point> points{};  // a line from box to box; none while it is not drawn yet
};

struct Diagram {
    std::vector<Box> boxes{};
    std::vector<Link> links{};
};

// The size of a box that its caption fits in; double-width characters count twice.
[[nodiscard]] double FittingWidth(const std::string& caption);
inline constexpr double fittingHeight = 8;

// The smallest rectangle around everything; empty for an empty diagram.
[[nodiscard]] Rect Bounds(const Diagram& diagram);

}  // namespace tessel::diagram
