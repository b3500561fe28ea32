#include "platform/diagram/seek.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

#include "platform/text/utf8.h"

namespace tessel::diagram {

namespace {

bool Holds(const Rect& rect, Point point) {
    return point.x >= rect.x && point.x <= rect.Right() && point.y >= rect.y && point.y <= rect.Bottom();
}

double DistanceTo(Point a, Point b, Point point) {
    const Point along{b.x - a.x, b.y - a.y};
    const double square = along.x * along.x + along.y * along.y;
    const double part = square == 0 ? 0 : ((point.x - a.x) * along.x + (point.y - a.y) * along.y) / square;
    const double t = std::clamp(part, 0.0, 1.0);
    return std::hypot(point.x - a.x - t * along.x, point.y - a.y - t * along.y);
}

// How far a place is in the direction, where what is off to the side counts more; infinite behind.
double Effort(Point from, Point to, Towards direction) {
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const bool isAcross = direction == Towards::Left || direction == Towards::Right;
    const bool isBackwards = direction == Towards::Left || direction == Towards::Up;
    const double ahead = (isAcross ? x : y) * (isBackwards ? -1 : 1);
    if (ahead <= 0) return std::numeric_limits<double>::infinity();
    return ahead + 2.5 * std::abs(isAcross ? y : x);
}

}  // namespace

const Box* BoxAt(const Content& content, Point point) {
    for (std::size_t i = content.Outlines().size(); i-- > 0;)
        if (Holds(content.Outlines()[i], point)) return &content.Drawing().boxes[i];
    return nullptr;
}

const Link* LinkAt(const Content& content, Point point, double within) {
    const Link* nearest = nullptr;
    for (const Link& link : content.Drawing().links) {
        for (std::size_t i = 1; i < link.points.size(); ++i) {
            const double distance = DistanceTo(link.points[i - 1], link.points[i], point);
            if (distance > within) continue;
            within = distance;
            nearest = &link;
        }
    }
    return nearest;
}

Content::Keys BoxesIn(const Content& content, const Rect& area) {
    Content::Keys keys;
    for (std::size_t i = 0; i < content.Outlines().size(); ++i) {
        const Rect& outline = content.Outlines()[i];
        if (Holds(area, {outline.x, outline.y}) && Holds(area, {outline.Right(), outline.Bottom()}))
            keys.push_back(content.Drawing().boxes[i].key);
    }
    return keys;
}

const Box* Neighbour(const Content& content, const std::string& key, Towards direction) {
    const auto& boxes = content.Drawing().boxes;
    if (!content.FindBox(key)) return boxes.empty() ? nullptr : &boxes.front();
    const Point from = content.OutlineOf(key).Center();
    const Box* nearest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const double effort = Effort(from, content.Outlines()[i].Center(), direction);
        if (effort >= least) continue;
        least = effort;
        nearest = &boxes[i];
    }
    return nearest;
}

const Link* LinkBeside(const Content& content, const std::string& box, const std::string& link, Walk walk) {
    std::vector<const Link*> links;
    for (const Link& other : content.Drawing().links)
        if (other.from == box || other.to == box) links.push_back(&other);
    if (links.empty()) return nullptr;
    if (walk == Walk::Previous) std::ranges::reverse(links);
    const auto known = std::ranges::find(links, link, &Link::key);
    if (known == links.end() || known + 1 == links.end()) return links.front();
    return *(known + 1);
}

Content::Keys BoxesWith(const Content& content, const std::string& words) {
    const std::string wanted = text::LowerAscii(words);
    std::vector<const Box*> found;
    for (const Box& box : content.Drawing().boxes) {
        const auto holds = [&](const std::string& t) {
            return text::LowerAscii(t).find(wanted) != std::string::npos;
        };
        if (!wanted.empty() && (holds(box.caption) || holds(box.comment))) found.push_back(&box);
    }
    std::ranges::sort(found, {}, [](const Box* box) { return std::tuple(box->rect.y, box->rect.x); });
    Content::Keys keys;
    for (const Box* box : found) keys.push_back(box->key);
    return keys;
}

}  // namespace tessel::diagram
