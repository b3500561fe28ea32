#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/repository_file.h"

namespace tessel::workbench {

// A workspace: a folder with workspace.xml, Options, Projects and Output in it.
class WorkspaceFolder {
  public:
    // Makes a workspace with one project in a folder that is empty or not there yet. It is a workspace only
    // once everything in it is made. Throws ErrorKind::Argument for a project name that no folder can bear,
    // File for a folder that holds something or cannot be made.
    static WorkspaceFolder Create(const std::string& folder, const std::string& projectName);

    // Writes nothing. Throws ErrorKind::File when the folder is no workspace, Xml when workspace.xml is
    // damaged.
    static WorkspaceFolder Open(const std::string& folder);

    [[nodiscard]] static bool IsWorkspace(const std::string& folder);

    // The workspace that a file or folder belongs to, and the project in whose folder it is. Throws
    // ErrorKind::File when it belongs to none.
    struct Place {
        std::string folder;
        std::optional<std::string> project;
    };
    [[nodiscard]] static Place Find(const std::string& path);

    [[nodiscard]] const std::string& Path() const { return path_; }  // absolute, without links and ".."
    [[nodiscard]] std::string Name() const;                          // the folder's own where none is given
    [[nodiscard]] std::vector<std::string> Projects() const;

    // The project of this name, or the only one when no name is given; else throws ErrorKind::Host with the
    // names.
    [[nodiscard]] std::string ChooseProject(const std::optional<std::string>& name) const;

    [[nodiscard]] const std::shared_ptr<RepositoryFile>& File() const { return file_; }

  private:
    explicit WorkspaceFolder(std::string path);

    std::string path_;
    std::shared_ptr<RepositoryFile> file_;
};

}  // namespace tessel::workbench
