#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/activity_log.h"
#include "platform/xml/document.h"
#include "tessel/object.h"

// What the editor asks of the workbench that hosts it. Everything here throws Error when the host cannot
// comply.
namespace tessel::host {

// An object of the host's repository: a project, a schema, a table. Attribute names are taken as they are.
class RepositoryObject : public Object {
  public:
    [[nodiscard]] virtual std::string Identifier() const = 0;
    [[nodiscard]] virtual std::string TypeName() const = 0;  // "PROJECT", "DBSCHEMA", "TABLE", ...
    [[nodiscard]] virtual std::string Label() const = 0;     // what people call it

    // The names of all its attributes, in the order of setting.
    [[nodiscard]] virtual std::vector<std::string> AttributeNames() const = 0;

    [[nodiscard]] virtual Value Attribute(const std::string& name) const = 0;  // Null when it is not set
    virtual void SetAttribute(const std::string& name, const std::string& value) = 0;

    // A change of attributes stands between these two.
    virtual void BeginChange() = 0;
    virtual void EndChange() = 0;

    virtual void AddRelation(const std::string& relation, const RepositoryObject& other) = 0;
    [[nodiscard]] virtual std::vector<std::shared_ptr<RepositoryObject>> Related(
        const std::string& relation) const = 0;  // in the order of adding
};

class Repository : public Object {
  public:
    [[nodiscard]] virtual std::shared_ptr<RepositoryObject> FindObject(const std::string& type,
                                                                       const std::string& name) = 0;
    [[nodiscard]] virtual std::shared_ptr<RepositoryObject> NewObject(const std::string& type,
                                                                      const std::string& name) = 0;
    [[nodiscard]] virtual std::shared_ptr<RepositoryObject> ObjectById(const std::string& identifier) = 0;

    // The project's objects of the type in the order of their identifiers, O2 before O10.
    [[nodiscard]] virtual std::vector<std::shared_ptr<RepositoryObject>> PrepareCollection(
        const RepositoryObject& project, const std::string& type) = 0;
    // The type of the object with this identifier; empty when there is none.
    [[nodiscard]] virtual std::string TypeNameOf(const std::string& identifier) = 0;

    // The file of the icon that stands for objects of the type, in the folder Icons.
    [[nodiscard]] virtual std::string EntityIcon(const std::string& type) = 0;
};

// The loaded source text behind a repository object.
class OriginSource {
  public:
    virtual ~OriginSource() = default;
    [[nodiscard]] virtual std::string Text() const = 0;  // empty once closed
    virtual void Close() = 0;
};

// The folders and names that GetCorvaneName gives, by their numbers.
namespace name_item {
inline constexpr int icons = 2;            // the folder that holds the folder Icons
inline constexpr int images = 3;           // the folder that holds the folder Images
inline constexpr int workspaceFolder = 4;  // the folder that holds the folder Projects
inline constexpr int workspaceName = 6;
inline constexpr int projectName = 7;
inline constexpr int templates = 13;  // the folder of the template database
}  // namespace name_item

// A tree of options that the user may edit.
class Options {
  public:
    virtual ~Options() = default;
    [[nodiscard]] virtual const xml::Document& Document() = 0;  // as it is now; good until the next call
    virtual void Save(const xml::Document& document) = 0;       // in place of what was there
};

// The host object. Names, the project and the repository answer to Call as well.
class Frontend : public Object {
  public:
    [[nodiscard]] virtual std::shared_ptr<RepositoryObject> ProjectObject() = 0;
    [[nodiscard]] virtual std::shared_ptr<Repository> RepositoryOf() = 0;
    [[nodiscard]] virtual std::string GetCorvaneName(int item) = 0;

    // The tree of the workspace options.
    [[nodiscard]] virtual const xml::Document& WorkspaceOptions() = 0;

    // The trees of the options that hold for the whole installation, and for the project.
    [[nodiscard]] virtual const xml::Document& GlobalOptions() = 0;
    [[nodiscard]] virtual std::shared_ptr<Options> ProjectOptions() = 0;

    // Tells where an add-on that is run may leave its list of complaints; a file that is there goes.
    virtual void UseErrorsFile(const std::string& path) = 0;

    // The activity log, the same one at every call.
    [[nodiscard]] virtual std::shared_ptr<ActivityLog> Log() = 0;

    // A window of the editor opens, and the editor ends.
    virtual void Initiate(const std::shared_ptr<Object>& window) = 0;
    virtual void Terminate() = 0;

    // The kind of a repository object, such as "DATAPORT".
    [[nodiscard]] virtual std::string ObjectKind(const RepositoryObject& object) = 0;
    // Loads the source text at `path` that belongs to `object`.
    [[nodiscard]] virtual std::shared_ptr<OriginSource> LoadSource(const std::string& path,
                                                                   const RepositoryObject& object) = 0;
};

}  // namespace tessel::host
