#include "platform/diagram/diagram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>

#include "platform/diagram/content.h"
#include "platform/diagram/diagram_file.h"
#include "platform/diagram/place.h"
#include "platform/diagram/svg.h"
#include "platform/files/file_service.h"
#include "support/temporary_folder.h"
#include "tessel/error.h"

namespace tessel::diagram {

namespace {

Box MakeBox(const std::string& key, Rect rect = {0, 0, 20, 8}) { return {key, "B" + key, "", rect}; }

double Distance(const Rect& rect, Point point) {
    const double dx = std::max({rect.x - point.x, 0.0, point.x - rect.x - rect.width});
    const double dy = std::max({rect.y - point.y, 0.0, point.y - rect.y - rect.height});
    return std::hypot(dx, dy);
}

// Boxes stand apart, and every link between boxes that are there runs from one to the other.
void ExpectDrawn(const Diagram& diagram) {
    std::map<std::string, Rect> outlines;
    for (const Box& box : diagram.boxes) outlines[box.key] = Outline(box);
    for (auto one = outlines.begin(); one != outlines.end(); ++one)
        for (auto other = outlines.begin(); other != one; ++other)
            ASSERT_FALSE(Overlap(one->second, other->second)) << one->first << " " << other->first;
    for (const Link& link : diagram.links) {
        ASSERT_GE(link.points.size(), 2U) << link.key;
        EXPECT_LT(Distance(outlines.at(link.from), link.points.front()), 1.0) << link.key;
        EXPECT_LT(Distance(outlines.at(link.to), link.points.back()), 1.0) << link.key;
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
    for (const int boxes : {0, 1, 12, 90, 410, 3001}) {  // the last in rows
        SCOPED_TRACE(boxes);
        Diagram diagram = Chain(boxes);
        if (boxes == 12) {
            diagram.links.push_back({"self", "", "t3", "t3", {}});
            diagram.links.push_back({"again", "", "t2", "t1", {}});
        }
        EXPECT_TRUE(PlaceBoxes(diagram));
        ExpectDrawn(diagram);
        for (const Box& box : diagram.boxes) EXPECT_EQ(box.rect.height, 8);
    }
}

// The points where two lines, along the axes, run on each other for a while.
bool RunOnEachOther(const std::vector<Point>& one, const std::vector<Point>& other) {
    for (std::size_t i = 1; i < one.size(); ++i) {
        for (std::size_t j = 1; j < other.size(); ++j) {
            const Rect a = Bounds({one[i - 1], one[i]});
            const Rect b = Bounds({other[j - 1], other[j]});
            const double across = std::min(a.Right(), b.Right()) - std::max(a.x, b.x);
            const double down = std::min(a.Bottom(), b.Bottom()) - std::max(a.y, b.y);
            if (across >= 0 && down >= 0 && across + down > 0) return true;
        }
    }
    return false;
}

TEST(Placement, LinesGoAroundBoxesAndBesideEachOther) {
    Diagram diagram = Chain(40);
    for (int i = 0; i < 30; ++i) {
        const auto box = [](int number) { return "t" + std::to_string(number); };
        diagram.links.push_back({"x" + box(i), "", box(i * 7 % 40), box(i * 11 % 13)});
        if (i % 10 == 0) diagram.links.push_back({"y" + box(i), "", box(i * 7 % 40), box(i * 11 % 13)});
    }
    PlaceBoxes(diagram);
    ExpectDrawn(diagram);
    for (const Link& link : diagram.links) {
        for (std::size_t i = 1; i < link.points.size(); ++i) {
            const Rect piece = Bounds({link.points[i - 1], link.points[i]});
            EXPECT_TRUE(piece.width == 0 || piece.height == 0) << link.key;
            for (const Box& box : diagram.boxes)
                EXPECT_FALSE(
                    Overlap({piece.x, piece.y, piece.width + 0.1, piece.height + 0.1}, Outline(box)) &&
                    box.key != link.from && box.key != link.to)
                    << link.key << " through " << box.key;
        }
        for (const Link& other : diagram.links) {
            const bool mayJoin = other.to == link.to && other.from != link.from;
            if (&other != &link && !mayJoin && link.from != link.to && other.from != other.to) {
                EXPECT_FALSE(RunOnEachOther(link.points, other.points)) << link.key << " " << other.key;
            }
        }
    }
}

TEST(Placement, PutsReferencedBoxesToTheLeft) {
    Diagram diagram = Chain(5);
    for (int i = 5; i < 40; ++i) {
        const std::string key = "t" + std::to_string(i);
        diagram.boxes.push_back(MakeBox(key));
        diagram.links.push_back({"k" + key, "", key, "t0"});
    }
    PlaceBoxes(diagram);
    for (int i = 1; i < 40; ++i) EXPECT_LT(diagram.boxes[0].rect.x, diagram.boxes[std::size_t(i)].rect.x);
}

TEST(Placement, IsGivenUpWithoutATrace) {
    Diagram diagram = Chain(30);
    int asked = 0;
    EXPECT_FALSE(PlaceBoxes(diagram, [&] { return ++asked < 1; }));
    for (const int after : {2, 4, 20}) {
        asked = 0;
        if (PlaceBoxes(diagram, [&] { return ++asked < after; })) break;
        for (const Box& box : diagram.boxes) EXPECT_EQ(box.rect.x + box.rect.y, 0);
        EXPECT_TRUE(diagram.links[0].points.empty());
    }
}

TEST(Placement, LeavesLinksToNowhereUndrawn) {
    for (const bool placed : {false, true}) {
        Diagram diagram{{MakeBox("t1")}, {{"k1", "", "t1", "t2", {}}}};
        placed ? TakePlaces(diagram, diagram) : void(PlaceBoxes(diagram));
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

TEST(DiagramFile, KeepsWhatItDoesNotKnow) {
    const TemporaryFolder folder;
    const std::string file = folder / "a.dgm.xml";
    files::ReplaceFile(file,
                       R"(<drawing theme="x"><!-- mine --><layer name="one"><box key="t1" x="1" pinned="y">
        <port side="left"/></box></layer><box key="t9"/><link key="k1" from="t1" to="t9"><point x="1"/><label/></link>
        <note>read me</note></drawing>)");
    const Diagram diagram{{{"t1", "A<", "c", {1.5, 2, 14, 8}, 0x12AB00}, MakeBox("t2")},
                          {{"k2", "F", "t1", "t2", {{3, 4}, {5, 6}}}}};
    SaveDiagram(file, diagram, {150, {7, -8.25}});
    const auto loaded = LoadStoredDiagram(file);
    EXPECT_EQ(loaded.sight, (Sight{150, {7, -8.25}}));
    ASSERT_EQ(loaded.diagram.boxes.size(), 2U);
    EXPECT_EQ(loaded.diagram.boxes[0].rect, diagram.boxes[0].rect);
    EXPECT_EQ(loaded.diagram.boxes[0].caption, "A<");
    EXPECT_EQ(loaded.diagram.boxes[0].colour, 0x12AB00U);
    ASSERT_EQ(loaded.diagram.links.size(), 1U);
    EXPECT_EQ(loaded.diagram.links[0].points, diagram.links[0].points);
    const std::string text = files::ReadFile(file);
    for (const auto* part : {"theme=\"x\"", "<!-- mine -->", "name=\"one\"", "pinned=\"y\"", "side=\"left\"",
                             "<note>read me</note>"})
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
    SaveDiagram(file, diagram, {150, {7, -8.25}});
    EXPECT_EQ(files::ReadFile(file), text);

    SaveDiagram(file, {{{"t1", "A\v", "\x1F\n"}}, {{"k1", "\x01", "t1", "t1"}}}, {});
    const auto [boxes, links] = LoadDiagram(file);
    EXPECT_EQ(boxes.at(0).caption + boxes[0].comment + links.at(0).caption, "A  \n ");
}

TEST(DiagramFile, IsKeptAsideWhenItIsDamaged) {
    const TemporaryFolder folder;
    const std::string file = folder / "a.dgm.xml";
    const std::string aside = folder / "a.dgm.damaged-1.xml";
    files::ReplaceFile(aside, "an earlier one");
    files::ReplaceFile(file, "<drawing");
    Content content;
    EXPECT_FALSE(content.Load(file));
    EXPECT_FALSE(files::FileExists(file));
    EXPECT_EQ(files::ReadFile(aside), "an earlier one");
    EXPECT_EQ(files::ReadFile(folder / "a.dgm.damaged-2.xml"), "<drawing");

    files::ReplaceFile(file, "damaged meanwhile");
    content.Save(file, {});
    EXPECT_EQ(files::ReadFile(folder / "a.dgm.damaged-3.xml"), "damaged meanwhile");
    EXPECT_TRUE(content.Load(file));
}

// Puts the tables, keys and captions, into the content as a window does that shows them anew.
void Show(Content& content, const std::string& file,
          const std::vector<std::pair<std::string, std::string>>& tables) {
    content.Clear();
    content.Load(file);
    double y = 0;
    for (const auto& [key, caption] : tables) content.AddBox(key, caption, {0, y += 10});
    const Diagram before = content.Drawing();
    for (const Box& box : before.boxes)
        if (std::ranges::find(tables, box.key, [](const auto& table) { return table.first; }) == tables.end())
            content.RemoveBox(box.key);
}

TEST(Content, TablesKeepTheirPlaces) {
    const TemporaryFolder folder;
    const std::string file = folder / "a.dgm.xml";
    const auto placeOf = [](const Content& content, const std::string& key) {
        const Rect rect = content.OutlineOf(key);
        return Point{rect.x, rect.y};
    };
    Content content;
    Show(content, file, {{"t1", "A"}, {"t2", "B"}});
    content.Move(std::vector<std::string>{"t1"}, {100, 0}, Content::Lines::Undrawn);
    EXPECT_TRUE(content.IsArranged());
    Show(content, file, {{"t1", "A"}, {"t2", "B"}});
    EXPECT_EQ(placeOf(content, "t1"), (Point{100, 10})) << "shown anew, never saved";
    content.Save(file, {});
    EXPECT_FALSE(content.IsArranged());

    Show(content, file, {{"t2", "B"}, {"t3", "A"}});
    EXPECT_EQ(placeOf(content, "t3"), (Point{100, 10})) << "back under another key";
    content.RemoveBox("t2");
    content.AddBox("t4", "B", {0, 70});
    EXPECT_EQ(placeOf(content, "t4"), (Point{0, 20})) << "removed and back";
    content.AddBox("t5", "C", {0, 70});
    EXPECT_EQ(placeOf(content, "t5"), (Point{0, 70}));
    content.SetCaption("t5", "D");
    content.AddBox("t6", "D", {0, 90});
    EXPECT_EQ(placeOf(content, "t6"), (Point{0, 70})) << "beside one that was given the caption";
    content.AddBox("t7", "C", {0, 90});
    EXPECT_EQ(placeOf(content, "t7"), (Point{0, 90})) << "no box has the caption any more";

    content.Move(std::vector<std::string>{"t3"}, {5, 5}, Content::Lines::Undrawn);
    std::filesystem::remove(file);
    Show(content, file, {{"t3", "A"}, {"t4", "B"}});
    EXPECT_EQ(placeOf(content, "t3"), (Point{0, 10})) << "the file was taken away";
}

TEST(Content, PlacementIsOneStepBack) {
    Content content;
    content.AddBox("t1", "A", {0, 10});
    content.AddBox("t2", "B", {0, 20});
    content.AddLink({"k1", "", "t1", "t2"});
    content.Route();
    const Diagram before = content.Drawing();
    ASSERT_TRUE(content.Place({}));
    EXPECT_NE(content.Drawing().boxes[0].rect, before.boxes[0].rect);
    content.UndoPlacement();
    EXPECT_FALSE(content.CanUndoPlacement());
    EXPECT_EQ(content.Drawing().boxes[0].rect, before.boxes[0].rect);
    EXPECT_EQ(content.Drawing().links[0].points, before.links[0].points);
}

TEST(Content, OnlyLinksOfMovedBoxesAreDrawnAnew) {
    Content content;
    for (const int i : {0, 1, 2, 3})
        content.AddBox("t" + std::to_string(i), std::to_string(i), {0, i * 20.0});
    for (const int i : {0, 1, 2})
        content.AddLink({"k" + std::to_string(i), "", "t" + std::to_string(i), "t" + std::to_string(i + 1)});
    content.Route();
    const auto before = content.Drawing().links;
    content.Move(std::vector<std::string>{"t0", "t1"}, {60, 0}, Content::Lines::Undrawn);
    const auto& links = content.Drawing().links;
    EXPECT_EQ(links[0].points[0].x, before[0].points[0].x + 60) << "with both its boxes";
    EXPECT_TRUE(links[1].points.empty());
    EXPECT_EQ(links[2].points, before[2].points);
    content.Route();
    ExpectDrawn(content.Drawing());
    content.RemoveBox("t1");
    ASSERT_EQ(content.Drawing().links.size(), 1U);
    EXPECT_EQ(content.FindLink("k2"), &links[0]);
}

TEST(Content, WhatIsRemovedIsGoneAtOnce) {
    Content content;
    for (const char* key : {"t1", "t2", "t3"}) content.AddBox(key, key, {0, 10});
    content.AddLink({"k1", "first", "t1", "t2"});
    content.AddLink({"k2", "second", "t2", "t3"});
    content.RemoveBox("t1");
    EXPECT_FALSE(content.FindBox("t1") || content.FindLink("k1"));
    content.RemoveLink("k2");
    content.AddBox("t1", "back", {0, 10});
    content.AddLink({"k2", "back", "t3", "t1"});
    const auto& [boxes, links] = content.Drawing();
    ASSERT_EQ(boxes.size() * 10 + links.size(), 31U);
    EXPECT_EQ(content.FindBox("t3"), &boxes[1]);
    EXPECT_EQ(content.FindBox("t1"), &boxes[2]);
    EXPECT_EQ(content.FindLink("k2"), &links[0]);
    EXPECT_EQ(links[0].caption, "back");
    EXPECT_EQ(content.Outlines().size(), 3U);
}

TEST(Svg, ShowsTextAsItIs) {
    const Diagram diagram{{{"t1", "A<&\">B", "it's\v<b>", {5, 5, 20, 8}}, {"t2", "表", "", {50, 5, 10, 8}}},
                          {{"k1", "F&K", "t1", "t2", {{25, 9}, {50, 9}}}, {"k2", "undrawn", "t1", "t3", {}}}};
    const std::string svg = Svg(diagram, "<title>");
    for (const auto* part :
         {"aria-label=\"&lt;title&gt;\"", "data-name=\"A&lt;&amp;&quot;&gt;B\" data-key=\"t1\"",
          "<title>it's &lt;b&gt;</title>", ">表</text>", "<title>F&amp;K</title>", "viewBox=\"0 0 244 56\"",
          R"(<rect x="12" y="12" width="80" height="32")", R"(d="M92 28 192 28 ")"})
        EXPECT_NE(svg.find(part), std::string::npos) << part << "\n" << svg;
    EXPECT_EQ(svg.find("undrawn"), std::string::npos);

    const std::string file = SvgFile(diagram, "<title>");
    EXPECT_EQ(file.find("Box_onClick") + file.find("currentColor"), 2 * std::string::npos);
    EXPECT_NE(file.find("fill=\"#ffffff\""), std::string::npos) << file;
}

}  // namespace

}  // namespace tessel::diagram
