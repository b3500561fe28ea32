#include "platform/diagram/diagram_file.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <filesystem>
#include <system_error>
#include <unordered_map>
#include <unordered_set>

#include "platform/files/file_service.h"
#include "platform/xml/characters.h"
#include "platform/xml/document.h"
#include "tessel/error.h"

namespace tessel::diagram {

namespace {

std::string Text(const xml::Element& element, std::string_view name) {
    return element.Attribute(name).value_or("");
}

// No drawing is larger, in any direction; what a file says beyond it is no place.
constexpr double farthest = 1e6;

std::optional<double> FiniteNumber(const std::string& text) {
    double number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault != std::errc() || !(std::abs(number) <= farthest)) return std::nullopt;
    return number;
}

double Number(const xml::Element& element, std::string_view name) {
    return FiniteNumber(Text(element, name)).value_or(0);
}

std::uint32_t Colour(const xml::Element& element) {
    const std::string text = Text(element, "colour");
    std::uint32_t colour = 0;
    const char* end = text.data() + text.size();
    const bool isColour =
        text.size() == 7 && text[0] == '#' && std::from_chars(text.data() + 1, end, colour, 16).ptr == end;
    return isColour ? colour : Box{}.colour;
}

Box ReadBox(const xml::Element& element) {
    return {Text(element, "key"),
            Text(element, "caption"),
            Text(element, "comment"),
            {Number(element, "x"), Number(element, "y"), Number(element, "width"), Number(element, "height")},
            Colour(element)};
}

Link ReadLink(const xml::Element& element) {
    Link link{Text(element, "key"), Text(element, "caption"), Text(element, "from"), Text(element, "to"), {}};
    for (const auto& point : element.Children())
        if (point.Name() == "point") link.points.push_back({Number(point, "x"), Number(point, "y")});
    return link;
}

bool IsBox(const xml::Element& element) { return element.Name() == "box" && element.Attribute("key"); }
bool IsLink(const xml::Element& element) { return element.Name() == "link"; }

// Calls `act` with each box and link below the element, at any depth.
template <typename Act>
void ForEach(const xml::Element& parent, const Act& act) {
    for (const auto& element : parent.Children()) {
        if (IsBox(element) || IsLink(element))
            act(element);
        else
            ForEach(element, act);
    }
}

Diagram ReadDiagram(const xml::Element& root) {
    Diagram diagram;
    std::unordered_set<std::string> boxes;
    std::unordered_set<std::string> links;
    ForEach(root, [&](const xml::Element& element) {
        if (IsBox(element)) {
            if (boxes.insert(Text(element, "key")).second) diagram.boxes.push_back(ReadBox(element));
        } else if (links.insert(Text(element, "key")).second) {
            diagram.links.push_back(ReadLink(element));
        }
    });
    return diagram;
}

std::optional<Sight> ReadSight(const xml::Element& root) {
    const auto zoom = FiniteNumber(Text(root, "zoom"));
    const auto x = FiniteNumber(Text(root, "x"));
    const auto y = FiniteNumber(Text(root, "y"));
    if (!zoom || !x || !y) return std::nullopt;
    return Sight{static_cast<int>(*zoom), {*x, *y}};
}

void SetNumber(xml::Element& element, std::string_view name, double number) {
    element.SetAttribute(name, fmt::format("{}", number));
}

void Write(const Box& box, xml::Element element) {
    element.SetAttribute("key", box.key);
    element.SetAttribute("caption", xml::Blanked(box.caption));
    element.SetAttribute("comment", xml::Blanked(box.comment));
    SetNumber(element, "x", box.rect.x);
    SetNumber(element, "y", box.rect.y);
    SetNumber(element, "width", box.rect.width);
    SetNumber(element, "height", box.rect.height);
    element.SetAttribute("colour", fmt::format("#{:06x}", box.colour));
}

void Write(const Link& link, xml::Element element) {
    element.SetAttribute("key", link.key);
    element.SetAttribute("caption", xml::Blanked(link.caption));
    element.SetAttribute("from", link.from);
    element.SetAttribute("to", link.to);
    for (auto& child : element.Children())
        if (child.Name() == "point") child.Remove();
    for (const Point& point : link.points) {
        auto child = element.AppendChild("point");
        SetNumber(child, "x", point.x);
        SetNumber(child, "y", point.y);
    }
}

// Brings the elements that are there up to date, takes away those that are not meant, and adds the others.
template <typename Thing>
void WriteAll(const std::vector<Thing>& things, std::vector<xml::Element>& there, xml::Element& root,
              const char* name) {
    std::unordered_map<std::string, const Thing*> left;
    for (const Thing& thing : things) left[thing.key] = &thing;
    std::unordered_set<std::string> written;
    for (auto& element : there) {
        const auto thing = left.find(Text(element, "key"));
        if (thing == left.end() || !written.insert(thing->first).second)
            element.Remove();
        else
            Write(*thing->second, element);
    }
    for (const Thing& thing : things)
        if (!written.contains(thing.key)) Write(thing, root.AppendChild(name));
}

void WriteSight(const Sight& sight, xml::Element& root) {
    root.SetAttribute("zoom", std::to_string(sight.zoom));
    SetNumber(root, "x", sight.middle.x);
    SetNumber(root, "y", sight.middle.y);
}

xml::Document New() {
    xml::Document document;
    document.AppendRoot("diagram").SetAttribute("version", "1");
    return document;
}

xml::Document LoadOrNew(const std::string& path) {
    if (!files::FileExists(path)) return New();
    try {
        return xml::Document::Load(files::NativePath(path));
    } catch (const Error& error) {
        if (error.Kind() != ErrorKind::Xml) throw;
    }
    KeepAside(path);
    return New();
}

}  // namespace

Diagram LoadDiagram(const std::string& path) { return LoadStoredDiagram(path).diagram; }

StoredDiagram LoadStoredDiagram(const std::string& path) {
    const auto document = xml::Document::Load(files::NativePath(path));
    return {ReadDiagram(document.Root()), ReadSight(document.Root())};
}

void SaveDiagram(const std::string& path, const Diagram& diagram, const Sight& sight) {
    const auto document = LoadOrNew(path);
    auto root = document.Root();
    std::vector<xml::Element> boxes;
    std::vector<xml::Element> links;
    ForEach(root, [&](const xml::Element& element) { (IsBox(element) ? boxes : links).push_back(element); });
    WriteSight(sight, root);
    WriteAll(diagram.boxes, boxes, root, "box");
    WriteAll(diagram.links, links, root, "link");
    document.Save(files::NativePath(path));
}

void KeepAside(const std::string& path) {
    const auto [folder, name, extension] = files::SplitPath(files::NativePath(path));
    for (int number = 1;; ++number) {
        const std::string aside = fmt::format("{}/{}.damaged-{}{}", folder, name, number, extension);
        if (!files::PlaceNewFile(path, aside)) continue;
        std::error_code fault;  // the copy is what counts
        std::filesystem::remove(files::NativePath(path), fault);
        return;
    }
}

}  // namespace tessel::diagram
