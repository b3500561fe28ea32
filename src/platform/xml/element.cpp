#include <pugixml.hpp>

#include "platform/xml/characters.h"
#include "platform/xml/document.h"
#include "platform/xml/query.h"
#include "tessel/error.h"

namespace tessel::xml {
namespace {

pugi::xml_node Node(void* node) { return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node)); }

pugi::xml_node ExistingNode(void* node) {
    if (!node) throw Error(ErrorKind::Xml, "An element that is not there cannot be changed.");
    return Node(node);
}

void CheckValue(std::string_view name, std::string_view value) {
    if (CanBeHeld(value)) return;
    throw Error(ErrorKind::Xml, "The value for \"" + std::string(name) +
                                    "\" holds a control character or is not UTF-8, which XML cannot hold.");
}

}  // namespace

std::string Element::Name() const { return Node(node_).name(); }

std::optional<std::string> Element::Attribute(std::string_view name) const {
    for (const auto& attribute : Node(node_).attributes()) {
        if (attribute.name() == name) return attribute.value();
    }
    return std::nullopt;
}

void Element::SetAttribute(std::string_view name, std::string_view value) {
    CheckValue(name, value);
    auto node = ExistingNode(node_);
    const std::string attributeName(name);
    auto attribute = node.attribute(attributeName.c_str());
    if (!attribute) attribute = node.append_attribute(attributeName.c_str());
    attribute.set_value(std::string(value).c_str());
}

std::vector<Element> Element::Children() const {
    std::vector<Element> children;
    for (const auto& child : Node(node_).children()) {
        if (child.type() == pugi::node_element) children.push_back(Element(child.internal_object()));
    }
    return children;
}

Element Element::AppendChild(std::string_view name) {
    return Element(ExistingNode(node_).append_child(std::string(name).c_str()).internal_object());
}

void Element::Remove() {
    auto node = ExistingNode(node_);
    node.parent().remove_child(node);
    node_ = nullptr;
}

Element Element::SelectSingleNode(std::string_view xpath) const {
    return Element(SelectElement(node_, xpath));
}

}  // namespace tessel::xml
