#include "platform/diagram/diagram.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/diagram/diagram_file.h"
#include "platform/diagram/place.h"
#include "platform/diagram/svg.h"
#include "platform/files/file_service.h"
#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::diagram {

namespace {

Box MakeBox(const std::string& key, Rect rect = {0, 0, 20, 8}) { return {key, "B" + key, "", rect}; }

bool Touch(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

double Distance(const Rect& rect, Point point) {
    const double dx = std::max({rect.x - point.x, 0.0, point.x - rect.x - rect.width});
    const double dy = std::max({rect.y - point.y, 0.0, point.y - rect.y - rect.height});
    return std::hypot(dx, dy);
}

// Boxes stand apart, and every link between boxes that are there runs from one to the other.
void ExpectDrawn(const Diagram& diagram) {
    for (std::size_t i = 0; i < diagram.boxes.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            ASSERT_FALSE(Touch(diagram.boxes[i].rect, diagram.boxes[j].rect)) << i << " " << j;
    const auto rect = [&](const std::string& key) {
        for (const Box& box : diagram.boxes)
            if (box.key == key) return box.rect;
        ADD_FAILURE() << key;
        return Rect{};
    };
    for (const Link& link : diagram.links) {
        ASSERT_GE(link.points.size(), 2U) << link.key;
        EXPECT_LT(Distance(rect(link.from), link.points.front()), 1.0) << link.key;
        EXPECT_LT(Distance(rect(link.to), link.points.back()), 1.0) << link.key;
    }
}

Diagram Chain(int boxes) {
    Diagram diagram;
    for (int i = 0; i < boxes; ++i) {
        diagram.boxes.push_back(MakeBox("t" + std::to_string(i), {0, 0, 12.0 + i % 7 * 5, 8}));
        if (i % 5 == 0) continue;  // an island begins
        const std::string number = std::to_string(i);
        diagram.links.push_back({"k" + number, "", "t" + number, "t" + std::to_string(i - 1), {}});
    }
    return diagram;
}

TEST(Placement, KeepsBoxesApartAndLinksOnThem) {
    for (const int boxes : {0, 1, 12, 90, 260, 3001}) {  // ranked, by forces, in rows
        SCOPED_TRACE(boxes);
        Diagram diagram = Chain(boxes);
        if (boxes == 12) {
            diagram.links.push_back({"self", "", "t3", "t3", {}});
            diagram.links.push_back({"again", "", "t2", "t1", {}});
        }
        PlaceBoxes(diagram);
        ExpectDrawn(diagram);
        for (const Box& box : diagram.boxes) EXPECT_EQ(box.rect.height, 8);
    }
}

TEST(Placement, LeavesLinksToNowhereUndrawn) {
    for (const bool placed : {false, true}) {
        Diagram diagram{{MakeBox("t1")}, {{"k1", "", "t1", "t2", {}}}};
        placed ? TakePlaces(diagram, diagram) : PlaceBoxes(diagram);
        EXPECT_TRUE(diagram.links[0].points.empty());
    }
}

TEST(Placement, FollowsTheDiagramThatIsThere) {
    const Diagram placed{
        {MakeBox("t1", {-40, 10, 30, 12}), MakeBox("t2", {60, 50, 2, 2}), MakeBox("gone")},
        {{"k1", "", "t1", "t2", {{-10, 16}, {60, 52}}}, {"k2", "", "t2", "t1", {{9, 9}, {8, 8}}}}};
    Diagram diagram{{MakeBox("t1"), MakeBox("t2"), MakeBox("t3"), MakeBox("t4")},
                    {{"k1", "", "t1", "t2", {}}, {"k2", "", "t3", "t1", {}}, {"k3", "", "t2", "t2", {}}}};
    TakePlaces(diagram, placed);
    EXPECT_EQ(diagram.boxes[0].rect, (Rect{-40, 10, 30, 12}));
    EXPECT_EQ(diagram.boxes[1].rect, (Rect{60, 50, 20, 8}));  // never smaller than its caption wants
    EXPECT_GT(diagram.boxes[2].rect.y, 52);
    EXPECT_EQ(diagram.links[0].points, placed.links[0].points);
    EXPECT_NE(diagram.links[1].points, placed.links[1].points);  // it joins other boxes now
    ExpectDrawn(diagram);
}

TEST(DiagramFile, IsReadLeniently) {
    const TemporaryFolder folder;
    const std::string file = folder / "a.dgm.xml";
    files::ReplaceFile(file, R"(<?xml version="1.0"?><drawing zoom="100"><layer>
        <box key="t1" caption="A" comment="c" x="-1.5" y="2" width="14" height="8"/><box caption="no key"/>
        <box key="t2" x="nan" y="1e999" width="wide"/></layer><note/>
        <link key="k1" caption="FK" from="t1" to="t2"><point x="1" y="2"/><bend/><point x="3"/></link></drawing>)");
    const Diagram diagram = LoadDiagram(file);
    ASSERT_EQ(diagram.boxes.size(), 2U);
    EXPECT_EQ(diagram.boxes[0].caption + diagram.boxes[0].comment, "Ac");
    EXPECT_EQ(diagram.boxes[0].rect, (Rect{-1.5, 2, 14, 8}));
    EXPECT_EQ(diagram.boxes[1].rect, Rect{});
    ASSERT_EQ(diagram.links.size(), 1U);
    EXPECT_EQ(diagram.links[0].from + diagram.links[0].to + diagram.links[0].caption, "t1t2FK");
    EXPECT_EQ(diagram.links[0].points, (std::vector<Point>{{1, 2}, {3, 0}}));

    files::ReplaceFile(file, "no diagram");
    EXPECT_THROW((void)LoadDiagram(file), Error);
}

TEST(Svg, ShowsTextAsItIs) {
    const Diagram diagram{{{"t1", "A<&\">B", "it's <b>", {5, 5, 20, 8}}, {"t2", "表", "", {50, 5, 10, 8}}},
                          {{"k1", "F&K", "t1", "t2", {{25, 9}, {50, 9}}}, {"k2", "undrawn", "t1", "t3", {}}}};
    const std::string svg = Svg(diagram, "<title>");
    for (const auto* part :
         {"aria-label=\"&lt;title&gt;\"", "data-name=\"A&lt;&amp;&quot;&gt;B\" data-key=\"t1\"",
          "<title>it's &lt;b&gt;</title>", ">表</text>", "<title>F&amp;K</title>", "viewBox=\"0 0 244 56\"",
          R"(<rect x="12" y="12" width="80" height="32")", R"(d="M92 28 192 28 ")"})
        EXPECT_NE(svg.find(part), std::string::npos) << part << "\n" << svg;
    EXPECT_EQ(svg.find("undrawn"), std::string::npos);
}

}  // namespace

}  // namespace tessel::diagram
