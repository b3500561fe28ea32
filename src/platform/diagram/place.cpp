#include "platform/diagram/place.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "platform/diagram/graphviz.h"
#include "platform/diagram/route.h"

namespace tessel::diagram {

namespace {

// Beyond this many boxes no placement is worth its time: nobody follows the lines any more.
constexpr std::size_t mostPlaced = 3000;

constexpr double gap = 4;

// In rows of about the width of a page, or of a square where there are many boxes, from `top` downwards.
void PlaceInRows(const std::vector<Box*>& boxes, double left, double top) {
    double area = 0;
    for (const Box* box : boxes) area += (box->rect.width + gap) * (box->rect.height + gap);
    const double right = left + std::max(240.0, std::sqrt(area));
    double x = left;
    double rowHeight = 0;
    for (Box* box : boxes) {
        if (x > left && x + box->rect.width > right) {
            x = left;
            top += rowHeight + gap;
            rowHeight = 0;
        }
        box->rect.x = x;
        box->rect.y = top;
        x += box->rect.width + gap;
        rowHeight = std::max(rowHeight, box->rect.height);
    }
}

// Takes the places of the boxes that have one; returns the others.
std::vector<Box*> TakeBoxPlaces(Diagram& diagram, const Diagram& placed) {
    std::unordered_map<std::string, Rect> places;
    for (const Box& box : placed.boxes) places[box.key] = box.rect;
    std::vector<Box*> others;
    for (Box& box : diagram.boxes) {
        const auto place = places.find(box.key);
        if (place == places.end()) {
            others.push_back(&box);
            continue;
        }
        const Rect& rect = place->second;
        box.rect = {rect.x, rect.y, std::max(rect.width, box.rect.width),
                    std::max(rect.height, box.rect.height)};
    }
    return others;
}

void TakeLines(Diagram& diagram, const Diagram& placed) {
    std::unordered_map<std::string, const Link*> lines;
    for (const Link& link : placed.links) lines[link.key] = &link;
    for (Link& link : diagram.links) {
        const auto line = lines.find(link.key);
        if (line != lines.end() && line->second->from == link.from && line->second->to == link.to)
            link.points = line->second->points;
    }
}

}  // namespace

void PlaceBoxes(Diagram& diagram) {
    if (diagram.boxes.size() > mostPlaced || !PlaceByGraphviz(diagram)) {
        std::vector<Box*> all;
        for (Box& box : diagram.boxes) all.push_back(&box);
        PlaceInRows(all, 0, 0);
    }
    RouteLinks(diagram);
}

void TakePlaces(Diagram& diagram, const Diagram& placed) {
    const std::vector<Box*> others = TakeBoxPlaces(diagram, placed);
    TakeLines(diagram, placed);
    const Rect taken = Bounds({placed.boxes, {}});
    PlaceInRows(others, taken.x, taken.y + taken.height + gap);
    RouteLinks(diagram);
}

}  // namespace tessel::diagram
