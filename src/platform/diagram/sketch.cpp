#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "platform/diagram/route.h"

namespace tessel::diagram {

namespace {

// Side to side, where the boxes do not stand above each other.
std::vector<Point> Sideways(const Rect& from, const Rect& to) {
    const bool rightwards = from.x < to.x;
    const Point start{rightwards ? from.Right() : from.x, from.Center().y};
    const Point end{rightwards ? to.x : to.Right(), to.Center().y};
    const double middle = (start.x + end.x) / 2;
    return {start, {middle, start.y}, {middle, end.y}, end};
}

std::vector<Point> UpAndDown(const Rect& from, const Rect& to) {
    const bool downwards = from.y < to.y;
    const Point start{from.Center().x, downwards ? from.Bottom() : from.y};
    const Point end{to.Center().x, downwards ? to.y : to.Bottom()};
    const double middle = (start.y + end.y) / 2;
    return {start, {start.x, middle}, {end.x, middle}, end};
}

bool StandAboveEachOther(const Rect& one, const Rect& other) {
    return one.x < other.Right() && other.x < one.Right();
}

bool IsOnBorder(const Rect& rect, Point point) {
    constexpr double near = 1;
    const double across = std::min(std::abs(point.x - rect.x), std::abs(point.x - rect.Right()));
    const double along = std::min(std::abs(point.y - rect.y), std::abs(point.y - rect.Bottom()));
    const bool isBeside = point.y > rect.y - near && point.y < rect.Bottom() + near;
    const bool isAbove = point.x > rect.x - near && point.x < rect.Right() + near;
    return (across < near && isBeside) || (along < near && isAbove);
}

}  // namespace

std::vector<Point> Sketch(const Rect& from, const Rect& to) {
    return StandAboveEachOther(from, to) ? UpAndDown(from, to) : Sideways(from, to);
}

void DropStrayLines(Diagram& diagram) {
    std::unordered_map<std::string, Rect> outlines;
    for (const Box& box : diagram.boxes) outlines[box.key] = Outline(box);
    for (Link& link : diagram.links) {
        const auto from = outlines.find(link.from);
        const auto to = outlines.find(link.to);
        const bool fits = from != outlines.end() && to != outlines.end() && link.points.size() > 1 &&
                          IsOnBorder(from->second, link.points.front()) &&
                          IsOnBorder(to->second, link.points.back());
        if (!fits) link.points.clear();
    }
}

}  // namespace tessel::diagram
