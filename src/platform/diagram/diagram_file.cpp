#include "platform/diagram/diagram_file.h"

#include <charconv>
#include <cmath>

#include "platform/files/file_service.h"
#include "platform/xml/document.h"

namespace tessel::diagram {

namespace {

std::string Text(const xml::Element& element, std::string_view name) {
    return element.Attribute(name).value_or("");
}

// No drawing is larger, in any direction; what a file says beyond it is no place.
constexpr double farthest = 1e6;

double Number(const xml::Element& element, std::string_view name) {
    const std::string text = Text(element, name);
    double number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    return fault == std::errc() && std::abs(number) <= farthest ? number : 0;
}

Box ReadBox(const xml::Element& element) {
    return {
        Text(element, "key"),
        Text(element, "caption"),
        Text(element, "comment"),
        {Number(element, "x"), Number(element, "y"), Number(element, "width"), Number(element, "height")}};
}

Link ReadLink(const xml::Element& element) {
    Link link{Text(element, "key"), Text(element, "caption"), Text(element, "from"), Text(element, "to"), {}};
    for (const auto& point : element.Children())
        if (point.Name() == "point") link.points.push_back({Number(point, "x"), Number(point, "y")});
    return link;
}

void ReadBelow(const xml::Element& parent, Diagram& diagram) {
    for (const auto& element : parent.Children()) {
        if (element.Name() == "box" && element.Attribute("key"))
            diagram.boxes.push_back(ReadBox(element));
        else if (element.Name() == "link")
            diagram.links.push_back(ReadLink(element));
        else
            ReadBelow(element, diagram);
    }
}

}  // namespace

Diagram LoadDiagram(const std::string& path) {
    const auto document = xml::Document::Load(files::NativePath(path));
    Diagram diagram;
    ReadBelow(document.Root(), diagram);
    return diagram;
}

}  // namespace tessel::diagram
