#pragma once

#include <memory>
#include <string>

#include "host/frontend.h"
#include "workbench/repository_file.h"

namespace tessel::workbench {

// The objects of workspace.xml. What is not found is looked for again in the file as it is now.
class StoredRepository : public host::Repository {
  public:
    explicit StoredRepository(std::shared_ptr<RepositoryFile> file) : file_(std::move(file)) {}

    // By type and attribute "Name", both exactly; the first where several bear it. Throws ErrorKind::Host
    // when there is none.
    [[nodiscard]] std::shared_ptr<host::RepositoryObject> FindObject(const std::string& type,
                                                                     const std::string& name) override;
    // An object that its BeginChange and EndChange bring into the file.
    [[nodiscard]] std::shared_ptr<host::RepositoryObject> NewObject(const std::string& type,
                                                                    const std::string& name) override;
    [[nodiscard]] std::shared_ptr<host::RepositoryObject> ObjectById(const std::string& identifier) override;

    // The objects that a relation of the project leads to, and those that no project's relation leads to:
    // they belong to all.
    [[nodiscard]] std::vector<std::shared_ptr<host::RepositoryObject>> PrepareCollection(
        const host::RepositoryObject& project, const std::string& type) override;
    [[nodiscard]] std::string TypeNameOf(const std::string& identifier) override;
    // Throws ErrorKind::Host for a type that has no icon.
    [[nodiscard]] std::string EntityIcon(const std::string& type) override;

    // FindObject, NewObject, ObjectById under the name Object, EntityIcon, and PrepareCollection, which gives
    // a keyed collection under the identifiers.
    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    [[nodiscard]] std::shared_ptr<Collection> PreparedCollection(const host::RepositoryObject& project,
                                                                 const std::string& type);

    std::shared_ptr<RepositoryFile> file_;
};

}  // namespace tessel::workbench
