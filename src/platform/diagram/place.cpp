#include "platform/diagram/place.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>

#include "platform/diagram/columns.h"
#include "platform/diagram/graphviz.h"
#include "platform/diagram/pack.h"
#include "platform/diagram/route.h"

namespace tessel::diagram {

namespace {

// Beyond this many boxes no placement is worth its time: nobody follows the lines any more.
constexpr std::size_t mostPlaced = 3000;

constexpr double gap = 4;
constexpr double gapOfParts = 12;

// The boxes that belong together, found by their keys.
class Parts {
  public:
    explicit Parts(const Diagram& diagram) : above_(diagram.boxes.size()) {
        std::iota(above_.begin(), above_.end(), std::size_t{0});
        for (std::size_t i = 0; i < diagram.boxes.size(); ++i) numbers_[diagram.boxes[i].key] = i;
        for (const Link& link : diagram.links)
            if (Joins(link)) above_[RootOf(numbers_[link.from])] = RootOf(numbers_[link.to]);
    }

    [[nodiscard]] bool Joins(const Link& link) const {
        return numbers_.contains(link.from) && numbers_.contains(link.to);
    }
    [[nodiscard]] std::size_t RootOf(const std::string& key) { return RootOf(numbers_.at(key)); }

  private:
    std::size_t RootOf(std::size_t number) {
        while (above_[number] != number) number = above_[number] = above_[above_[number]];
        return number;
    }

    std::vector<std::size_t> above_;
    std::unordered_map<std::string, std::size_t> numbers_;
};

// Each part a diagram of its own; boxes without a link to another are left out.
std::vector<Diagram> PartsOf(const Diagram& diagram) {
    Parts parts(diagram);
    std::unordered_map<std::size_t, Diagram> byRoot;
    std::vector<std::size_t> order;
    for (const Box& box : diagram.boxes) {
        const auto [part, isNew] = byRoot.try_emplace(parts.RootOf(box.key));
        if (isNew) order.push_back(part->first);
        part->second.boxes.push_back(box);
    }
    for (const Link& link : diagram.links)
        if (parts.Joins(link)) byRoot.at(parts.RootOf(link.from)).links.push_back(link);
    std::vector<Diagram> linked;
    for (const std::size_t root : order)
        if (Diagram& part = byRoot.at(root); part.boxes.size() > 1) linked.push_back(std::move(part));
    return linked;
}

// In rows of about the width of a page, or of a square where there are many boxes, from `top` downwards.
void PlaceInRows(const std::vector<Box*>& boxes, double left, double top, double width = 240) {
    double area = 0;
    for (const Box* box : boxes) area += (Outline(*box).width + gap) * (Outline(*box).height + gap);
    const double right = left + std::max(width, std::sqrt(area));
    double x = left;
    double rowHeight = 0;
    for (Box* box : boxes) {
        const Rect outline = Outline(*box);
        if (x > left && x + outline.width > right) {
            x = left;
            top += rowHeight + gap;
            rowHeight = 0;
        }
        box->rect.x = x;
        box->rect.y = top;
        x += outline.width + gap;
        rowHeight = std::max(rowHeight, outline.height);
    }
}

using Places = std::unordered_map<std::string, Rect>;

Places PlacesOf(const Diagram& diagram) {
    Places places;
    for (const Box& box : diagram.boxes) places[box.key] = box.rect;
    return places;
}

// Puts the parts beside each other; the width of the whole.
double PackParts(std::vector<Diagram>& parts) {
    std::vector<Rect> rects;
    for (const Diagram& part : parts) rects.push_back(Bounds({part.boxes, {}}));
    std::vector<Rect> packed = rects;
    Pack(packed, gapOfParts);
    double width = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        for (Box& box : parts[i].boxes) {
            box.rect.x += packed[i].x - rects[i].x;
            box.rect.y += packed[i].y - rects[i].y;
        }
        width = std::max(width, packed[i].Right());
    }
    return width;
}

// Puts the boxes where the parts have them, and those that are in none below, in rows.
void TakeParts(Diagram& diagram, const std::vector<Diagram>& parts, double width) {
    Places places;
    double bottom = 0;
    for (const Diagram& part : parts) {
        places.merge(PlacesOf(part));
        const Rect bounds = Bounds({part.boxes, {}});
        bottom = std::max(bottom, bounds.Bottom() + gapOfParts);
    }
    std::vector<Box*> others;
    for (Box& box : diagram.boxes) {
        const auto place = places.find(box.key);
        place == places.end() ? others.push_back(&box) : void(box.rect = place->second);
    }
    std::ranges::sort(others, {}, [](const Box* box) { return box->caption; });
    PlaceInRows(others, 0, bottom, width);
}

// Takes the places of the boxes that have one; returns the others.
std::vector<Box*> TakeBoxPlaces(Diagram& diagram, const Diagram& placed) {
    const Places places = PlacesOf(placed);
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

void PlaceAllInRows(Diagram& diagram) {
    std::vector<Box*> all;
    for (Box& box : diagram.boxes) all.push_back(&box);
    PlaceInRows(all, 0, 0);
}

}  // namespace

bool PlaceBoxes(Diagram& diagram, const KeepOn& keepOn) {
    Diagram placed = diagram;
    std::vector<Diagram> parts = PartsOf(placed);
    const bool isPlaced = placed.boxes.size() <= mostPlaced && PlaceByGraphviz(parts, keepOn);
    if (keepOn && !keepOn()) return false;
    if (isPlaced) {
        for (Diagram& part : parts) SpaceColumns(part);
        TakeParts(placed, parts, PackParts(parts));
    } else {
        PlaceAllInRows(placed);
    }
    for (Link& link : placed.links) link.points.clear();
    if (!RouteLinks(placed, mostInPlacement, keepOn)) return false;
    diagram = std::move(placed);
    return true;
}

void TakePlaces(Diagram& diagram, const Diagram& placed) {
    const std::vector<Box*> others = TakeBoxPlaces(diagram, placed);
    TakeLines(diagram, placed);
    const Rect taken = Bounds({placed.boxes, {}});
    PlaceInRows(others, taken.x, taken.Bottom() + gap);
    DropStrayLines(diagram);
    RouteLinks(diagram);
}

}  // namespace tessel::diagram
