#include "platform/diagram/route.h"

#include <unordered_map>

namespace tessel::diagram {

namespace {

Point Center(const Rect& rect) { return {rect.x + rect.width / 2, rect.y + rect.height / 2}; }

std::vector<Point> Loop(const Rect& rect) {
    constexpr double out = 4;
    const double right = rect.x + rect.width;
    const double above = rect.y - out;
    return {{right - out, rect.y},
            {right - out, above},
            {right + out, above},
            {right + out, rect.y + out},
            {right, rect.y + out}};
}

// Side to side, where the boxes do not stand above each other.
std::vector<Point> Sideways(const Rect& from, const Rect& to) {
    const bool rightwards = from.x < to.x;
    const Point start{rightwards ? from.x + from.width : from.x, Center(from).y};
    const Point end{rightwards ? to.x : to.x + to.width, Center(to).y};
    const double middle = (start.x + end.x) / 2;
    return {start, {middle, start.y}, {middle, end.y}, end};
}

std::vector<Point> UpAndDown(const Rect& from, const Rect& to) {
    const bool downwards = from.y < to.y;
    const Point start{Center(from).x, downwards ? from.y + from.height : from.y};
    const Point end{Center(to).x, downwards ? to.y : to.y + to.height};
    const double middle = (start.y + end.y) / 2;
    return {start, {start.x, middle}, {end.x, middle}, end};
}

bool StandAboveEachOther(const Rect& one, const Rect& other) {
    return one.x < other.x + other.width && other.x < one.x + one.width;
}

}  // namespace

void RouteLinks(Diagram& diagram) {
    std::unordered_map<std::string, const Rect*> places;
    for (const Box& box : diagram.boxes) places[box.key] = &box.rect;
    for (Link& link : diagram.links) {
        const auto from = places.find(link.from);
        const auto to = places.find(link.to);
        if (!link.points.empty() || from == places.end() || to == places.end()) continue;
        if (link.from == link.to)
            link.points = Loop(*from->second);
        else if (StandAboveEachOther(*from->second, *to->second))
            link.points = UpAndDown(*from->second, *to->second);
        else
            link.points = Sideways(*from->second, *to->second);
    }
}

}  // namespace tessel::diagram
