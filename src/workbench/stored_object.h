#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/frontend.h"
#include "workbench/repository_file.h"

namespace tessel::workbench {

// A handle on one object of workspace.xml; it stays good when the file is read anew. SetAttribute writes at
// once, but between BeginChange and EndChange it only collects: EndChange writes everything together, and a
// handle that is let go before drops what it collected. When EndChange throws, the change is still open.
class StoredObject : public host::RepositoryObject {
  public:
    StoredObject(std::shared_ptr<RepositoryFile> file, std::string identifier);

    // An object with an identifier of its own that stands in the file, and is found, from EndChange on. That
    // throws ErrorKind::Host when another program has made one of its type and name in between.
    static std::shared_ptr<StoredObject> New(std::shared_ptr<RepositoryFile> file, const std::string& type,
                                             const std::string& name);

    [[nodiscard]] std::string Identifier() const override { return identifier_; }
    [[nodiscard]] std::string TypeName() const override;
    // The attribute "Label", or "Name" where that is not set or empty.
    [[nodiscard]] std::string Label() const override;
    [[nodiscard]] std::vector<std::string> AttributeNames() const override;
    [[nodiscard]] Value Attribute(const std::string& name) const override;
    void SetAttribute(const std::string& name, const std::string& value) override;
    void BeginChange() override;
    void EndChange() override;
    void AddRelation(const std::string& relation, const host::RepositoryObject& other) override;
    [[nodiscard]] std::vector<std::shared_ptr<host::RepositoryObject>> Related(
        const std::string& relation) const override;

    // The same members by name; Related gives a keyed collection under the identifiers.
    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    struct Draft {
        std::optional<std::string> newType;  // of an object that is not in the file yet
        bool nameWasFree = false;            // when that object was made
        RepositoryContents::Attributes attributes;
    };

    void AddNew(RepositoryContents& contents) const;
    [[nodiscard]] std::shared_ptr<Collection> RelatedCollection(const std::string& relation) const;

    std::shared_ptr<RepositoryFile> file_;
    std::string identifier_;
    std::optional<Draft> draft_;  // from BeginChange to EndChange
};

// The objects as a keyed collection under their identifiers.
[[nodiscard]] std::shared_ptr<Collection> CollectionOf(
    const std::vector<std::shared_ptr<host::RepositoryObject>>& objects);

}  // namespace tessel::workbench
