#pragma once

#include <functional>
#include <optional>
#include <string>

#include "workbench/file_stamp.h"
#include "workbench/repository_contents.h"

namespace tessel::workbench {

// The file workspace.xml, which several programs may change in turn: each change is made to what the file
// holds at that moment, under a lock, and none is lost. A crash leaves the file before or after a change.
class RepositoryFile {
  public:
    explicit RepositoryFile(std::string path);

    // What the file held when it was last looked at; good until the next call.
    [[nodiscard]] const RepositoryContents& Contents();
    // What the file holds now.
    [[nodiscard]] const RepositoryContents& PresentContents();

    // Makes the change in memory and on the disk, or, when it throws, in neither. `keep` keeps what was
    // changed elsewhere at the same time; it comes once the changed file stands beside the old one, ready to
    // take its place, and nothing is changed when it throws. When the disk fails after it, the file is the
    // old or the new one.
    void Change(
        const std::function<void(RepositoryContents&)>& change, const std::function<void()>& keep = [] {});

  private:
    void Read();

    std::string path_;
    std::optional<RepositoryContents> contents_;  // nothing when the file must be read anew
    FileStamp stamp_;
};

}  // namespace tessel::workbench
