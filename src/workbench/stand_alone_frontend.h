#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/frontend.h"
#include "workbench/stored_repository.h"
#include "workbench/workspace_folder.h"

namespace tessel::workbench {

// The host of one project of a workspace, with no workbench around it.
class StandAloneFrontend : public host::Frontend {
  public:
    // `share` is the folder of the installation that holds the template database, Icons and Images.
    StandAloneFrontend(WorkspaceFolder folder, std::string project, std::string share);

    [[nodiscard]] std::shared_ptr<host::RepositoryObject> ProjectObject() override;
    [[nodiscard]] std::shared_ptr<host::Repository> RepositoryOf() override { return repository_; }
    // Throws ErrorKind::Host for a number that is none of host::name_item.
    [[nodiscard]] std::string GetCorvaneName(int item) override;

    // Options/workspace.xml as it is now; good until the next call.
    [[nodiscard]] const xml::Document& WorkspaceOptions() override;

    // The object's attribute "Kind", or its type where that is not set or empty.
    [[nodiscard]] std::string ObjectKind(const host::RepositoryObject& object) override;
    // The file's text, as a SourceText; the object does not matter.
    [[nodiscard]] std::shared_ptr<host::OriginSource> LoadSource(
        const std::string& path, const host::RepositoryObject& object) override;

    // ProjectObject, Repository and GetCorvaneName.
    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    WorkspaceFolder folder_;
    std::string project_;
    std::string share_;
    std::shared_ptr<StoredRepository> repository_;
    xml::Document options_;
    FileStamp optionsStamp_;  // of the file that options_ was read from
};

}  // namespace tessel::workbench
