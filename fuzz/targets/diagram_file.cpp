// Any bytes in a diagram file are read or refused, and what was read can be edited, drawn and stored. The
// first line says what to edit, what follows is the file.

#include "fuzz/input.h"
#include "platform/diagram/content.h"
#include "platform/diagram/place.h"
#include "platform/diagram/route.h"
#include "platform/diagram/svg.h"
#include "platform/xml/document.h"
#include "support/temporary_folder.h"

namespace tessel::fuzz {
namespace {

// A drawing with more takes its time, which is no finding.
constexpr std::size_t mostThings = 60;

void RequireSame(const diagram::StoredDiagram& one, const diagram::StoredDiagram& other) {
    const auto& [boxes, links] = one.diagram;
    Require(boxes.size() == other.diagram.boxes.size() && links.size() == other.diagram.links.size(),
            "A stored diagram has lost, or gained, something.");
    Require(one.sight == other.sight, "A stored diagram is seen elsewhere.");
}

void StoreAgain(const std::string& path, const diagram::StoredDiagram& stored) {
    const auto sight = stored.sight.value_or(diagram::Sight{});
    SaveDiagram(path, stored.diagram, sight);
    RequireSame({stored.diagram, sight}, diagram::LoadStoredDiagram(path));
}

void Edit(diagram::Content& content, char kind, const std::string& key, const std::string& other) {
    const std::vector<std::string> both{key, other};
    switch (kind) {
        case 'a':
            return content.AddBox(key, other, {4, 4});
        case 'r':
            return content.RemoveBox(key);
        case 'c':
            return content.SetCaption(key, other);
        case 'w':
            return content.SetWidth(key, static_cast<double>(other.size()) * 1000);
        case 'l':
            return content.AddLink({"new", other, key, other});
        case 'm':
            return content.Move(both, {3, 1000}, diagram::Content::Lines::Sketched);
        case 'u':
            return content.Move(both, {-10, 2}, diagram::Content::Lines::Undrawn);
        default:
            return content.Route();
    }
}

void EditAll(const std::string& path, const std::string& kinds, const diagram::Diagram& drawing) {
    diagram::Content content;
    Require(content.Load(path), "A diagram that was stored is not taken up.");
    const auto key = [&](std::size_t i) {
        return drawing.boxes.empty() ? "k" : drawing.boxes[i % drawing.boxes.size()].key;
    };
    for (std::size_t i = 0; i < kinds.size() && i < 20; ++i) Edit(content, kinds[i], key(i), key(3 * i + 1));
    content.Route();
    (void)content.Extent();
    content.Save(path, {});
}

void Draw(diagram::Diagram drawing) {
    diagram::DropStrayLines(drawing);
    diagram::RouteLinks(drawing);
    for (const auto& svg : {diagram::Svg(drawing, "page"), diagram::SvgFile(drawing, "file")})
        Require(Succeeds([&] { (void)xml::Document::Parse(svg, "drawing"); }), "A drawing is no XML: " + svg);
    diagram::Diagram others = drawing;
    if (!others.boxes.empty()) others.boxes.pop_back();
    diagram::TakePlaces(drawing, others);
}

void Use(const std::string& path, const std::string& kinds, const diagram::StoredDiagram& stored) {
    if (stored.diagram.boxes.size() + stored.diagram.links.size() > mostThings) return;
    StoreAgain(path, stored);
    EditAll(path, kinds, stored.diagram);
    Draw(stored.diagram);
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel::fuzz;
    static const tessel::TemporaryFolder folder;
    Input input(data, size);
    const std::string kinds = input.Line();
    tessel::Write(folder / "a.dgm.xml", input.Rest());
    std::optional<tessel::diagram::StoredDiagram> stored;
    if (Succeeds([&] { stored = tessel::diagram::LoadStoredDiagram(folder / "a.dgm.xml"); }))
        Use(folder / "a.dgm.xml", kinds, *stored);
    return 0;
}
