#pragma once

#include <memory>
#include <string>

#include "host/frontend.h"
#include "platform/text/texts.h"
#include "workbench/option_file.h"
#include "workbench/stored_repository.h"
#include "workbench/workspace_folder.h"

namespace tessel::workbench {

// The host of one project of a workspace, with no workbench around it.
class StandAloneFrontend : public host::Frontend {
  public:
    // `share` is the folder of the installation that holds the template database, Icons, Images, options and
    // texts; `language` is the one of the log, "en", "ja" or "ko".
    StandAloneFrontend(WorkspaceFolder folder, std::string project, std::string share,
                       std::string language = text::LanguageOfLocale());

    [[nodiscard]] std::shared_ptr<host::RepositoryObject> ProjectObject() override;
    [[nodiscard]] std::shared_ptr<host::Repository> RepositoryOf() override { return repository_; }
    // Throws ErrorKind::Host for a number that is none of host::name_item.
    [[nodiscard]] std::string GetCorvaneName(int item) override;

    // Options/workspace.xml and global.xml as they are now, good until the next call. The first must be
    // there; while the second is not, the installation's tree stands for it.
    [[nodiscard]] const xml::Document& WorkspaceOptions() override { return workspaceOptions_.Document(); }
    [[nodiscard]] const xml::Document& GlobalOptions() override { return globalOptions_.Document(); }
    // Options/project.xml, or the installation's tree while that is not there.
    [[nodiscard]] std::shared_ptr<host::Options> ProjectOptions() override { return projectOptions_; }

    void UseErrorsFile(const std::string& path) override;
    [[nodiscard]] std::string ErrorsFile() const { return errorsFile_; }  // empty before the first
    [[nodiscard]] std::string Language() const { return language_; }

    // A StoredLog in the project's folder.
    [[nodiscard]] std::shared_ptr<host::ActivityLog> Log() override;

    // Both are written to the log.
    void Initiate(const std::shared_ptr<Object>& window) override;
    void Terminate() override;
    [[nodiscard]] std::shared_ptr<Object> Window() const {
        return window_.lock();
    }  // none while none is open

    // The object's attribute "Kind", or its type where that is not set or empty.
    [[nodiscard]] std::string ObjectKind(const host::RepositoryObject& object) override;
    // The file's text, as a SourceText; the object does not matter.
    [[nodiscard]] std::shared_ptr<host::OriginSource> LoadSource(
        const std::string& path, const host::RepositoryObject& object) override;

    // ProjectObject, Repository, Window, ErrorsFile, Language, GetCorvaneName, Initiate and Terminate.
    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    void WriteToLog(int text);

    WorkspaceFolder folder_;
    std::string project_;
    std::string share_;
    std::string language_;
    std::shared_ptr<StoredRepository> repository_;
    OptionFile workspaceOptions_;
    OptionFile globalOptions_;
    std::shared_ptr<OptionFile> projectOptions_;
    std::shared_ptr<host::ActivityLog> log_;  // made when it is first asked for
    std::weak_ptr<Object> window_;
    std::string errorsFile_;
};

}  // namespace tessel::workbench
