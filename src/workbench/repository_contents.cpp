#include "workbench/repository_contents.h"

#include <algorithm>
#include <charconv>
#include <tuple>

#include "platform/xml/characters.h"
#include "tessel/error.h"

namespace tessel::workbench {
namespace {

[[noreturn]] void Damaged(const std::string& reason) { throw Error(ErrorKind::Xml, reason); }

std::string Required(const xml::Element& element, const std::string& name) {
    const auto value = element.Attribute(name);
    if (!value || value->empty())
        Damaged("an element \"" + element.Name() + "\" has no attribute \"" + name + "\"");
    return *value;
}

std::string NameKey(const std::string& type, const std::string& name) { return type + '\0' + name; }

// Sorts identifiers that end in a number by that number.
std::tuple<std::string, std::size_t, std::string, std::string> OrderKey(const std::string& identifier) {
    const auto prefix = identifier.find_last_not_of("0123456789") + 1;
    const auto number = std::min(identifier.find_first_not_of('0', prefix), identifier.size());
    return {identifier.substr(0, prefix), identifier.size() - number, identifier.substr(number), identifier};
}

xml::Element ChildNamed(const xml::Element& parent, const std::string& element, const std::string& name) {
    for (const auto& child : parent.Children()) {
        if (child.Name() == element && child.Attribute("name") == name) return child;
    }
    return {};
}

std::optional<std::string> AttributeOf(const xml::Element& object, const std::string& name) {
    const auto attribute = ChildNamed(object, "attribute", name);
    return attribute ? attribute.Attribute("value") : std::nullopt;
}

void SetAttribute(xml::Element object, const std::string& name, const std::string& value) {
    auto attribute = ChildNamed(object, "attribute", name);
    if (!attribute) {
        attribute = object.AppendChild("attribute");
        attribute.SetAttribute("name", name);
    }
    attribute.SetAttribute("value", value);
}

// `what` says which text it is.
void RequireHeld(const std::string& text, const std::string& what) {
    if (xml::CanBeHeld(text)) return;
    throw Error(ErrorKind::Xml, what + " holds a control character or is not UTF-8, which XML cannot hold.");
}

void RequireName(const std::string& name, const std::string& what) {
    if (name.empty()) throw Error(ErrorKind::Argument, what + " is empty.");
    RequireHeld(name, what);
}

std::uint64_t Counter(const xml::Element& root) {
    const auto text = Required(root, "next");
    std::uint64_t counter = 0;
    const auto* end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, counter);
    if (fault != std::errc() || stop != end) Damaged("the attribute \"next\" is no number");
    return counter;
}

}  // namespace

RepositoryContents::RepositoryContents() {
    auto root = document_.AppendRoot("workspace");
    root.SetAttribute("next", "1");
    root.AppendChild("objects");
    root.AppendChild("relations");
}

RepositoryContents RepositoryContents::Load(const std::string& path) {
    RepositoryContents contents(xml::Document::Load(path));
    try {
        contents.ReadSections();
    } catch (const Error& error) {
        throw Error(error.Kind(), path + " is damaged: " + error.what() + ".");
    }
    return contents;
}

void RepositoryContents::ReadSections() {
    if (document_.Root().Name() != "workspace") Damaged("its root element is not \"workspace\"");
    (void)Counter(document_.Root());
    for (const auto& object : Section("objects").Children()) {
        if (object.Name() == "object") ReadObject(object);
    }
    for (const auto& relation : Section("relations").Children()) {
        if (relation.Name() == "relation") ReadRelation(relation);
    }
}

void RepositoryContents::ReadObject(const xml::Element& object) {
    const auto identifier = Required(object, "id");
    (void)Required(object, "type");
    if (!objects_.emplace(identifier, object).second)
        Damaged("two objects have the identifier " + identifier);
}

void RepositoryContents::ReadRelation(const xml::Element& relation) {
    relations_[Required(relation, "from")].push_back({Required(relation, "name"), Required(relation, "to")});
}

bool RepositoryContents::EnterName(const std::string& identifier, const xml::Element& object) const {
    const auto name = AttributeOf(object, "Name");
    return !name || identifiers_.emplace(NameKey(Required(object, "type"), *name), identifier).second;
}

void RepositoryContents::EnterAllNames() const {
    identifiers_.clear();
    for (const auto& object : Section("objects").Children()) {
        if (object.Name() == "object") (void)EnterName(Required(object, "id"), object);
    }
    namesAreOld_ = false;
}

std::optional<std::string> RepositoryContents::WorkspaceName() const {
    return document_.Root().Attribute("name");
}

std::string RepositoryContents::TypeOf(const std::string& identifier) const {
    return Required(Object(identifier), "type");
}

std::optional<std::string> RepositoryContents::Attribute(const std::string& identifier,
                                                         const std::string& name) const {
    return AttributeOf(Object(identifier), name);
}

std::vector<std::string> RepositoryContents::AttributeNames(const std::string& identifier) const {
    std::vector<std::string> names;
    for (const auto& child : Object(identifier).Children())
        if (const auto name = child.Attribute("name"); name && child.Name() == "attribute")
            names.push_back(*name);
    return names;
}

std::optional<std::string> RepositoryContents::Find(const std::string& type, const std::string& name) const {
    if (namesAreOld_) EnterAllNames();
    const auto found = identifiers_.find(NameKey(type, name));
    return found == identifiers_.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::string> RepositoryContents::NamesOf(const std::string& type) const {
    std::vector<std::string> names;
    for (const auto& object : Section("objects").Children()) {
        if (object.Name() != "object" || object.Attribute("type") != type) continue;
        if (const auto name = AttributeOf(object, "Name")) names.push_back(*name);
    }
    return names;
}

std::vector<std::string> RepositoryContents::Related(const std::string& identifier,
                                                     const std::string& relation) const {
    (void)Object(identifier);
    std::vector<std::string> related;
    const auto found = relations_.find(identifier);
    if (found == relations_.end()) return related;
    for (const auto& [name, to] : found->second) {
        if (name == relation && HasObject(to)) related.push_back(to);
    }
    return related;
}

std::unordered_set<std::string> RepositoryContents::ObjectsOfOthers(const std::string& project) const {
    std::unordered_set<std::string> others;
    for (const auto& [from, relations] : relations_) {
        if (from == project || !HasObject(from) || TypeOf(from) != projectType) continue;
        for (const auto& relation : relations) others.insert(relation.to);
    }
    if (const auto own = relations_.find(project); own != relations_.end())
        for (const auto& relation : own->second) others.erase(relation.to);
    return others;
}

std::vector<std::string> RepositoryContents::ObjectsOf(const std::string& type) const {
    std::vector<std::string> identifiers;
    for (const auto& [identifier, object] : objects_) {
        if (object.Attribute("type") == type) identifiers.push_back(identifier);
    }
    std::ranges::sort(identifiers, {}, OrderKey);
    return identifiers;
}

std::vector<std::string> RepositoryContents::ObjectsOf(const std::string& project,
                                                       const std::string& type) const {
    auto identifiers = ObjectsOf(type);
    const auto others = ObjectsOfOthers(project);
    std::erase_if(identifiers, [&](const std::string& identifier) { return others.contains(identifier); });
    return identifiers;
}

std::string RepositoryContents::TakeIdentifier() {
    auto counter = Counter(document_.Root());
    // Objects entered by hand may stand in the counter's way.
    while (HasObject("O" + std::to_string(counter))) ++counter;
    document_.Root().SetAttribute("next", std::to_string(counter + 1));
    return "O" + std::to_string(counter);
}

void RepositoryContents::AddObject(const std::string& identifier, const std::string& type) {
    RequireName(type, "The type of the object " + identifier);
    auto object = SectionToExtend("objects").AppendChild("object");
    object.SetAttribute("id", identifier);
    object.SetAttribute("type", type);
    objects_.emplace(identifier, object);
}

void RepositoryContents::SetAttributes(const std::string& identifier, const Attributes& attributes) {
    const auto object = Object(identifier);
    const auto oldName = AttributeOf(object, "Name");
    for (const auto& [name, value] : attributes) {
        RequireName(name, "The name of an attribute of the object " + identifier);
        RequireHeld(value, "The attribute \"" + name + "\" of the object " + identifier);
        SetAttribute(object, name, value);
    }
    if (AttributeOf(object, "Name") == oldName) return;
    if (!oldName && EnterName(identifier, object)) return;
    // The name that it gives up may be another object's, too, and it may stand before those that bear the
    // new.
    namesAreOld_ = true;
}

void RepositoryContents::AddRelation(const std::string& from, const std::string& relation,
                                     const std::string& to) {
    RequireName(relation, "The name of a relation of the object " + from);
    (void)Object(to);
    if (std::ranges::count(Related(from, relation), to) > 0) return;
    auto element = SectionToExtend("relations").AppendChild("relation");
    element.SetAttribute("name", relation);
    element.SetAttribute("from", from);
    element.SetAttribute("to", to);
    relations_[from].push_back({relation, to});
}

xml::Element RepositoryContents::Object(const std::string& identifier) const {
    const auto object = objects_.find(identifier);
    if (object != objects_.end()) return object->second;
    throw Error(ErrorKind::Host, "There is no object " + identifier + " in the workspace.");
}

xml::Element RepositoryContents::Section(const std::string& name) const {
    for (const auto& child : document_.Root().Children()) {
        if (child.Name() == name) return child;
    }
    return {};
}

xml::Element RepositoryContents::SectionToExtend(const std::string& name) {
    const auto section = Section(name);
    return section ? section : document_.Root().AppendChild(name);
}

}  // namespace tessel::workbench
