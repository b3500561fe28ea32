#include "platform/diagram/graphviz.h"

#include <fmt/format.h>
#include <gvc.h>

#include <memory>
#include <unordered_map>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace tessel::diagram {

namespace {

// Graphviz takes sizes in inches and answers in points, upwards.
constexpr double pointsOfUnit = 4;
constexpr double pointsOfInch = 72;

// Ranked drawing costs more than the square of its size; beyond this many boxes forces place them.
constexpr std::size_t mostRanked = 250;

// A drawing that is wider is tried in the other direction, too: a page can be long, but not wide.
constexpr double widest = 300;

// Graphviz declares its text parameters without const, and changes none of them.
char* Chars(const std::string& text) { return const_cast<char*>(text.c_str()); }

struct ContextCloser {
    void operator()(GVC_t* context) const { gvFreeContext(context); }
};
struct GraphCloser {
    void operator()(Agraph_t* graph) const { agclose(graph); }
};
using Context = std::unique_ptr<GVC_t, ContextCloser>;
using Graph = std::unique_ptr<Agraph_t, GraphCloser>;

void SetDefaults(Agraph_t* graph, int kind,
                 std::initializer_list<std::pair<const char*, const char*>> defaults) {
    for (const auto& [name, value] : defaults) agattr(graph, kind, Chars(name), Chars(value));
}

Graph MakeGraph(const char* direction) {
    Graph graph(agopen(Chars("diagram"), Agdirected, nullptr));
    SetDefaults(graph.get(), AGRAPH,
                {{"rankdir", direction},
                 {"nodesep", "0.22"},
                 {"ranksep", "0.45"},
                 {"pack", "20"},
                 {"overlap", "prism"},
                 {"mclimit", "0.5"},
                 {"nslimit", "2"}});
    SetDefaults(graph.get(), AGNODE,
                {{"shape", "box"}, {"label", ""}, {"fixedsize", "true"}, {"width", "1"}, {"height", "1"}});
    SetDefaults(graph.get(), AGEDGE, {{"arrowhead", "none"}});
    return graph;
}

class Layout {
  public:
    // `direction` is where the links of a ranked drawing lead: "BT" is upwards, "RL" to the left.
    Layout(Diagram& diagram, const char* direction) : diagram_(diagram), graph_(MakeGraph(direction)) {
        for (const Box& box : diagram.boxes) AddBox(box);
        for (const Link& link : diagram.links) AddLink(link);
    }
    ~Layout() {
        if (placed_) gvFreeLayout(context_.get(), graph_.get());
    }
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

    bool Run() {
        const bool ranked = diagram_.boxes.size() <= mostRanked;
        agattr(graph_.get(), AGRAPH, Chars("splines"), Chars(ranked ? "true" : "line"));
        placed_ = gvLayout(context_.get(), graph_.get(), ranked ? "dot" : "sfdp") == 0;
        return placed_;
    }

    void HandBack() {
        for (std::size_t i = 0; i < boxes_.size(); ++i) {
            Rect& rect = diagram_.boxes[i].rect;
            const Point center = ToUnits(ND_coord(boxes_[i]));
            rect.x = center.x - rect.width / 2;
            rect.y = center.y - rect.height / 2;
        }
        for (std::size_t i = 0; i < links_.size(); ++i)
            if (links_[i]) diagram_.links[i].points = PointsOf(links_[i]);
    }

  private:
    void AddBox(const Box& box) {
        Agnode_t* node = agnode(graph_.get(), Chars(box.key), 1);
        const auto inches = [](double units) {
            return fmt::format("{}", units * pointsOfUnit / pointsOfInch);
        };
        agset(node, Chars("width"), Chars(inches(box.rect.width)));
        agset(node, Chars("height"), Chars(inches(box.rect.height)));
        boxes_.push_back(node);
        nodes_[box.key] = node;
    }

    void AddLink(const Link& link) {
        const auto from = nodes_.find(link.from);
        const auto to = nodes_.find(link.to);
        const bool joins = from != nodes_.end() && to != nodes_.end();
        links_.push_back(joins ? agedge(graph_.get(), from->second, to->second, nullptr, 1) : nullptr);
    }

    Point ToUnits(pointf point) const {
        return {point.x / pointsOfUnit, (GD_bb(graph_.get()).UR.y - point.y) / pointsOfUnit};
    }

    // The curve as a line of short pieces; nothing for an edge that was not drawn.
    std::vector<Point> PointsOf(Agedge_t* edge) const {
        const splines* drawn = ED_spl(edge);
        if (!drawn || drawn->size == 0) return {};
        const bezier& curve = drawn->list[0];
        std::vector<Point> points{ToUnits(curve.list[0])};
        for (int start = 0; start + 3 < curve.size; start += 3) Flatten(&curve.list[start], points);
        return points;
    }

    void Flatten(const pointf* controls, std::vector<Point>& points) const {
        constexpr int pieces = 10;
        for (int i = 1; i <= pieces; ++i) {
            const double t = static_cast<double>(i) / pieces;
            const double s = 1 - t;
            const double weights[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
            pointf point{0, 0};
            for (int c = 0; c < 4; ++c) {
                point.x += weights[c] * controls[c].x;
                point.y += weights[c] * controls[c].y;
            }
            points.push_back(ToUnits(point));
        }
    }

    Diagram& diagram_;
    Context context_{gvContext()};
    Graph graph_;
    std::vector<Agnode_t*> boxes_;  // in the order of the diagram's
    std::vector<Agedge_t*> links_;  // likewise; null for a link without a box
    std::unordered_map<std::string, Agnode_t*> nodes_;
    bool placed_ = false;
};

bool Place(Diagram& diagram, const char* direction) {
#ifdef __SANITIZE_ADDRESS__
    const __lsan::ScopedDisabler leaks;  // Graphviz does not give back all that a layout takes
#endif
    Layout layout(diagram, direction);
    if (!layout.Run()) return false;
    layout.HandBack();
    return true;
}

}  // namespace

bool PlaceByGraphviz(Diagram& diagram) {
    agseterr(AGMAX);  // what cannot be drawn is drawn otherwise; nothing is said on the terminal
    Diagram upwards = diagram;
    if (!Place(upwards, "BT")) return false;
    if (diagram.boxes.size() > mostRanked || Bounds(upwards).width <= widest) {
        diagram = std::move(upwards);
        return true;
    }
    const bool narrower = Place(diagram, "RL") && Bounds(diagram).width < Bounds(upwards).width;
    if (!narrower) diagram = std::move(upwards);
    return true;
}

}  // namespace tessel::diagram
