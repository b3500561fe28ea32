#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "support/temporary_folder.h"
#include "tessel/error.h"
#include "workbench/stored_repository.h"
#include "workbench/workspace_folder.h"

namespace tessel::workbench {

// A workspace with the project "Orders", opened once.
class WorkspaceFixture : public testing::Test {
  protected:
    WorkspaceFixture() { WorkspaceFolder::Create((folder_ / "w"), "Orders"); }

    [[nodiscard]] WorkspaceFolder Open() const { return WorkspaceFolder::Open((folder_ / "w")); }
    [[nodiscard]] StoredRepository OpenRepository() const { return StoredRepository(Open().File()); }
    [[nodiscard]] std::string FileText() const { return Content(FilePath()); }
    [[nodiscard]] std::string FilePath() const { return (folder_ / "w/workspace.xml"); }

    // Makes an object and brings it into the file.
    static std::shared_ptr<host::RepositoryObject> Make(host::Repository& repository, const std::string& type,
                                                        const std::string& name) {
        auto object = repository.NewObject(type, name);
        object->BeginChange();
        object->EndChange();
        return object;
    }

    static std::optional<ErrorKind> KindThrown(const std::function<void()>& action) {
        try {
            action();
            return std::nullopt;
        } catch (const Error& error) {
            return error.Kind();
        }
    }

    TemporaryFolder folder_;
};

}  // namespace tessel::workbench
