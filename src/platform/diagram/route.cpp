#include "platform/diagram/route.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

#include "platform/diagram/track_search.h"

namespace tessel::diagram {

namespace {

constexpr double margin = 40;  // that lines may take around the boxes

// More links are led around each other once only, and hastily.
constexpr std::size_t mostRoutedWell = 400;
constexpr float haste = 1.4F;

struct Route {
    Link* link;
    Rect from;
    Rect to;
    std::int32_t group;
};

// At the right of the box; each further loop around the one before it.
std::vector<Point> Loop(const Rect& rect, int number) {
    const double out = rect.Right() + 4 + gridPitch * number;
    const double half = std::max(0.5, rect.height / 4 - 0.5 * number);
    const double above = rect.Center().y - half;
    const double below = rect.Center().y + half;
    return {{rect.Right(), above}, {out, above}, {out, below}, {rect.Right(), below}};
}

double Length(const Route& route) {
    const Point from = route.from.Center();
    const Point to = route.to.Center();
    return std::abs(from.x - to.x) + std::abs(from.y - to.y);
}

class Router {
  public:
    explicit Router(Diagram& diagram) : diagram_(diagram) {
        for (const Box& box : diagram.boxes) {
            numbers_[box.key] = std::int32_t(outlines_.size());
            outlines_.push_back(Outline(box));
        }
        for (Link& link : diagram.links) Sort(link);
        std::ranges::stable_sort(routes_, {}, Length);
    }

    bool Run(std::size_t most, const KeepOn& keepOn) {
        if (routes_.empty()) return true;
        if (routes_.size() > most) return SketchAll();
        TrackGrid grid = MakeGrid();
        if (!grid.IsUsable()) return SketchAll();
        const bool isLarge = routes_.size() > mostRoutedWell;
        TrackSearch search(grid, isLarge ? haste : 1);
        const int rounds = isLarge ? 1 : 2;
        for (int round = 0; round < rounds; ++round) {
            for (const Route& route : routes_) {
                if (keepOn && !keepOn()) return false;
                Draw(route, grid, search);
            }
        }
        return true;
    }

  private:
    using Pair = std::pair<std::int32_t, std::int32_t>;

    // Loops are drawn at once.
    void Sort(Link& link) {
        const auto from = numbers_.find(link.from);
        const auto to = numbers_.find(link.to);
        if (from == numbers_.end() || to == numbers_.end()) return;
        const Rect& start = outlines_[std::size_t(from->second)];
        const int number = pairs_[{from->second, to->second}]++;
        if (!link.points.empty()) return;
        if (from == to) {
            link.points = Loop(start, number);
            return;
        }
        // Lines between the same two boxes are groups of their own, but for the first.
        const std::int32_t group = number == 0 ? to->second + 1 : --lastOwnGroup_;
        routes_.push_back({&link, start, outlines_[std::size_t(to->second)], group});
    }

    [[nodiscard]] TrackGrid MakeGrid() const {
        std::vector<Point> corners;
        for (const Route& route : routes_) {
            for (const Rect& rect : {route.from, route.to}) {
                corners.push_back({rect.x - margin, rect.y - margin});
                corners.push_back({rect.Right() + margin, rect.Bottom() + margin});
            }
        }
        TrackGrid grid(Bounds(corners));
        if (!grid.IsUsable()) return grid;
        for (const Rect& outline : outlines_) grid.Block(outline);
        for (const Link& link : diagram_.links) {
            if (link.points.empty()) continue;
            const auto to = numbers_.find(link.to);
            grid.Enter(link.points, to == numbers_.end() ? lastOwnGroup_ - 1 : to->second + 1);
        }
        return grid;
    }

    bool SketchAll() const {
        for (const Route& route : routes_) route.link->points = Sketch(route.from, route.to);
        return true;
    }

    static void Draw(const Route& route, TrackGrid& grid, TrackSearch& search) {
        grid.TakeOut(route.link->points);
        route.link->points =
            search.Find(route.from, route.to, route.group).value_or(Sketch(route.from, route.to));
        grid.Enter(route.link->points, route.group);
    }

    Diagram& diagram_;
    std::vector<Rect> outlines_;
    std::unordered_map<std::string, std::int32_t> numbers_;
    std::map<Pair, int> pairs_;
    std::vector<Route> routes_;
    std::int32_t lastOwnGroup_ = 0;
};

}  // namespace

bool RouteLinks(Diagram& diagram, std::size_t most, const KeepOn& keepOn) {
    return Router(diagram).Run(most, keepOn);
}

}  // namespace tessel::diagram
