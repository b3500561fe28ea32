#include "platform/diagram/graphviz.h"

#include <fmt/format.h>
#include <gvc.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <unordered_map>

#include "platform/diagram/child_task.h"

namespace tessel::diagram {

namespace {

// Graphviz takes sizes in inches and answers in points, upwards.
constexpr double pointsOfUnit = 4;
constexpr double pointsOfInch = 72;

// From here on the order within the columns is found with less effort.
constexpr std::size_t many = 400;

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

std::string Inches(double units) { return fmt::format("{}", units * pointsOfUnit / pointsOfInch); }

Graph MakeGraph(std::size_t boxes) {
    Graph graph(agopen(Chars("diagram"), Agdirected, nullptr));
    const bool isLarge = boxes > many;
    SetDefaults(graph.get(), AGRAPH,
                {{"rankdir", "RL"},
                 {"splines", ""},
                 {"nodesep", Inches(6).c_str()},
                 {"ranksep", Inches(12).c_str()},
                 {"mclimit", isLarge ? "0.3" : "2"},
                 {"nslimit", isLarge ? "0.5" : "4"},
                 {"nslimit1", isLarge ? "1" : "4"}});
    SetDefaults(graph.get(), AGNODE,
                {{"shape", "box"}, {"label", ""}, {"fixedsize", "true"}, {"width", "1"}, {"height", "1"}});
    return graph;
}

class Layout {
  public:
    Layout(GVC_t* context, const Diagram& diagram)
        : diagram_(diagram), context_(context), graph_(MakeGraph(diagram.boxes.size())) {
        for (const Box& box : diagram.boxes) AddBox(box);
        for (const Link& link : diagram.links) AddLink(link);
    }

    // The middle of each box, in the order of the diagram's.
    std::vector<Point> Run() {
        if (gvLayout(context_, graph_.get(), "dot") != 0) throw std::runtime_error("not placed");
        std::vector<Point> middles;
        const double top = GD_bb(graph_.get()).UR.y;
        for (Agnode_t* box : boxes_)
            middles.push_back({ND_coord(box).x / pointsOfUnit, (top - ND_coord(box).y) / pointsOfUnit});
        return middles;
    }

  private:
    void AddBox(const Box& box) {
        const Rect outline = Outline(box);
        Agnode_t* node = agnode(graph_.get(), Chars(box.key), 1);
        agset(node, Chars("width"), Chars(Inches(outline.width)));
        agset(node, Chars("height"), Chars(Inches(outline.height)));
        boxes_.push_back(node);
        nodes_[box.key] = node;
    }

    void AddLink(const Link& link) {
        if (link.from == link.to) return;
        agedge(graph_.get(), nodes_.at(link.from), nodes_.at(link.to), nullptr, 1);
    }

    const Diagram& diagram_;
    GVC_t* context_;
    Graph graph_;
    std::vector<Agnode_t*> boxes_;
    std::unordered_map<std::string, Agnode_t*> nodes_;
};

std::string Placed(const std::vector<Diagram>& parts) {
    agseterr(AGMAX);  // nothing is said on the terminal
    const Context context(gvContext());
    std::vector<Point> middles;
    for (const Diagram& part : parts) {
        const auto of = Layout(context.get(), part).Run();
        middles.insert(middles.end(), of.begin(), of.end());
    }
    return {reinterpret_cast<const char*>(middles.data()), middles.size() * sizeof(Point)};
}

}  // namespace

bool PlaceByGraphviz(std::vector<Diagram>& parts, const KeepOn& keepOn) {
    const auto placed = RunInChild([&] { return Placed(parts); }, keepOn);
    if (!placed) return false;
    const char* next = placed->data();
    for (Diagram& part : parts) {
        for (Box& box : part.boxes) {
            Point middle;
            std::memcpy(&middle, next, sizeof middle);
            next += sizeof middle;
            const Rect outline = Outline(box);
            box.rect.x = middle.x - outline.width / 2;
            box.rect.y = middle.y - outline.height / 2;
        }
    }
    return true;
}

}  // namespace tessel::diagram
