#include "platform/diagram/columns.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

namespace tessel::diagram {

namespace {

constexpr double leastGap = 10;
constexpr double mostGap = 48;

struct Column {
    std::vector<Box*> boxes{};
    double width = 0;
    std::vector<std::pair<double, int>> ends{};  // of the links that go up or down at its right
};

using Columns = std::map<long, Column>;  // by the middle

Columns ColumnsOf(Diagram& diagram) {
    Columns columns;
    for (Box& box : diagram.boxes) {
        const Rect outline = Outline(box);
        Column& column = columns[std::lround(outline.Center().x)];
        column.boxes.push_back(&box);
        column.width = std::max(column.width, outline.width);
    }
    return columns;
}

void CountLinks(const Diagram& diagram, Columns& columns) {
    std::unordered_map<std::string, Point> middles;
    for (const Box& box : diagram.boxes) middles[box.key] = Outline(box).Center();
    for (const Link& link : diagram.links) {
        const Point from = middles.at(link.from);
        const Point to = middles.at(link.to);
        auto& ends = columns.at(std::lround(std::min(from.x, to.x))).ends;
        ends.emplace_back(std::min(from.y, to.y), 1);
        ends.emplace_back(std::max(from.y, to.y), -1);
    }
}

// The most links that go up or down beside each other.
int Tracks(std::vector<std::pair<double, int>> ends) {
    std::ranges::sort(ends);
    int now = 0;
    int most = 0;
    for (const auto& [place, change] : ends) most = std::max(most, now += change);
    return most;
}

}  // namespace

void SpaceColumns(Diagram& diagram) {
    Columns columns = ColumnsOf(diagram);
    CountLinks(diagram, columns);
    double left = 0;
    for (auto& [middle, column] : columns) {
        for (Box* box : column.boxes) {
            box->rect.x = left;
            box->rect.y = std::round(box->rect.y / gridPitch) * gridPitch;
        }
        left += column.width + std::clamp(leastGap - 4 + gridPitch * Tracks(column.ends), leastGap, mostGap);
        left = std::ceil(left / gridPitch) * gridPitch;
    }
}

}  // namespace tessel::diagram
