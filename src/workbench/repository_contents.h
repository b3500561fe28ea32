#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/xml/document.h"

namespace tessel::workbench {

// The type of the objects that stand for projects.
inline constexpr const char* projectType = "PROJECT";

// What workspace.xml holds: objects with an identifier, a type and attributes, and relations from object to
// object. Everything else in the document stays as it is. An object that is asked about must be there, or
// ErrorKind::Host is thrown.
class RepositoryContents {
  public:
    using Attributes =
        std::vector<std::pair<std::string, std::string>>;  // a later value goes before an earlier one

    // An empty repository.
    RepositoryContents();
    // Throws ErrorKind::Xml, naming the file, when the document is no repository.
    static RepositoryContents Load(const std::string& path);

    [[nodiscard]] std::optional<std::string> WorkspaceName() const;
    [[nodiscard]] bool HasObject(const std::string& identifier) const {
        return objects_.contains(identifier);
    }
    [[nodiscard]] std::string TypeOf(const std::string& identifier) const;
    [[nodiscard]] std::optional<std::string> Attribute(const std::string& identifier,
                                                       const std::string& name) const;
    // In the order of the document.
    [[nodiscard]] std::vector<std::string> AttributeNames(const std::string& identifier) const;
    // The first object of this type whose attribute "Name" is `name`.
    [[nodiscard]] std::optional<std::string> Find(const std::string& type, const std::string& name) const;
    // The names of all objects of the type, in the order of the document.
    [[nodiscard]] std::vector<std::string> NamesOf(const std::string& type) const;
    // All objects of the type, in the order of their identifiers, O2 before O10.
    [[nodiscard]] std::vector<std::string> ObjectsOf(const std::string& type) const;
    // Those of them that belong to the project: those that a relation of the project leads to, and those that
    // no project's relation leads to.
    [[nodiscard]] std::vector<std::string> ObjectsOf(const std::string& project,
                                                     const std::string& type) const;
    // The objects that the relation leads to, in the order of adding; those that are gone are left out.
    [[nodiscard]] std::vector<std::string> Related(const std::string& identifier,
                                                   const std::string& relation) const;

    // An identifier that no object has or had.
    [[nodiscard]] std::string TakeIdentifier();
    // Throw ErrorKind::Argument for a type or a name that is empty, Xml for a text that XML cannot hold.
    void AddObject(const std::string& identifier, const std::string& type);
    void SetAttributes(const std::string& identifier, const Attributes& attributes);
    void AddRelation(const std::string& from, const std::string& relation, const std::string& to);  // once

    [[nodiscard]] std::string Text() const { return document_.Text(); }  // what the file is to hold

  private:
    struct Relation {
        std::string name;
        std::string to;
    };

    explicit RepositoryContents(xml::Document document) : document_(std::move(document)) {}
    void ReadSections();
    void ReadObject(const xml::Element& object);
    void ReadRelation(const xml::Element& relation);
    // False when an object of its type and name is there already.
    [[nodiscard]] bool EnterName(const std::string& identifier, const xml::Element& object) const;
    void EnterAllNames() const;
    // The objects that relations of other projects lead to and those of this one do not.
    [[nodiscard]] std::unordered_set<std::string> ObjectsOfOthers(const std::string& project) const;
    [[nodiscard]] xml::Element Object(const std::string& identifier) const;
    // The first child of the root with this name; the sections stand in any order and may be missing.
    [[nodiscard]] xml::Element Section(const std::string& name) const;
    [[nodiscard]] xml::Element SectionToExtend(const std::string& name);  // made when missing

    xml::Document document_;
    std::unordered_map<std::string, xml::Element> objects_;
    mutable std::unordered_map<std::string, std::string> identifiers_;  // by NameKey
    mutable bool namesAreOld_ = true;                                   // identifiers_ must be made anew
    std::unordered_map<std::string, std::vector<Relation>> relations_;  // by the object that they lead from
};

}  // namespace tessel::workbench
