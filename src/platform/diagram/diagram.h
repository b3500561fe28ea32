#pragma once

#include <cstdint>
#include <functional>
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

    [[nodiscard]] double Right() const { return x + width; }
    [[nodiscard]] double Bottom() const { return y + height; }
    [[nodiscard]] Point Center() const { return {x + width / 2, y + height / 2}; }
};

struct Box {
    std::string key;  // unlike that of every other box
    std::string caption{};
    std::string comment{};
    Rect rect{};
    std::uint32_t colour = 0x00FFFF;  // red, green and blue, a byte each from the highest on
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

// Asked again and again whether a long operation goes on.
using KeepOn = std::function<bool()>;

// Boxes are best placed at multiples of it.
inline constexpr double gridPitch = 2;

// The size of a box that its caption fits in; double-width characters count twice.
[[nodiscard]] double FittingWidth(const std::string& caption);
inline constexpr double fittingHeight = 8;

// Where the box is drawn: from its place on, and never smaller than its caption wants.
[[nodiscard]] Rect Outline(const Box& box);

[[nodiscard]] bool Overlap(const Rect& one, const Rect& other);  // not where they only touch

// The smallest rectangle around everything that is drawn; empty for an empty diagram.
[[nodiscard]] Rect Bounds(const Diagram& diagram);
[[nodiscard]] Rect Bounds(const std::vector<Point>& points);

}  // namespace tessel::diagram
