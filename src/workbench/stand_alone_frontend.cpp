#include "workbench/stand_alone_frontend.h"

#include <functional>

#include "platform/component/member_table.h"
#include "platform/files/file_service.h"
#include "tessel/error.h"
#include "workbench/source_text.h"
#include "workbench/stored_log.h"

namespace tessel::workbench {
namespace {

constexpr int editorOpened = 2130;
constexpr int editorClosed = 2131;

// The installation's tree, for a workspace that has none of its own.
std::function<xml::Document()> InstalledOptions(const std::string& share, const char* file) {
    return [path = share + "/options/" + file] { return xml::Document::Load(path); };
}

}  // namespace

StandAloneFrontend::StandAloneFrontend(WorkspaceFolder folder, std::string project, std::string share,
                                       std::string language)
    : folder_(std::move(folder)),
      project_(std::move(project)),
      share_(std::move(share)),
      language_(std::move(language)),
      repository_(std::make_shared<StoredRepository>(folder_.File())),
      workspaceOptions_(folder_.Path() + "/Options/workspace.xml"),
      globalOptions_(folder_.Path() + "/Options/global.xml", InstalledOptions(share_, "global.xml")),
      projectOptions_(std::make_shared<OptionFile>(folder_.Path() + "/Options/project.xml",
                                                   InstalledOptions(share_, "project.xml"))) {}

std::shared_ptr<host::RepositoryObject> StandAloneFrontend::ProjectObject() {
    return repository_->FindObject(projectType, project_);
}

std::string StandAloneFrontend::GetCorvaneName(int item) {
    switch (item) {
        case host::name_item::icons:
        case host::name_item::images:
        case host::name_item::templates:
            return share_;
        case host::name_item::workspaceFolder:
            return folder_.Path();
        case host::name_item::workspaceName:
            return folder_.Name();
        case host::name_item::projectName:
            return project_;
        default:
            throw Error(ErrorKind::Host,
                        "The host has no name with the number " + std::to_string(item) + ".");
    }
}

std::shared_ptr<host::ActivityLog> StandAloneFrontend::Log() {
    if (!log_) log_ = std::make_shared<StoredLog>(folder_.Path() + "/Projects/" + project_ + "/activity.log");
    return log_;
}

void StandAloneFrontend::UseErrorsFile(const std::string& path) {
    errorsFile_ = files::NativePath(path);
    files::RemoveFile(errorsFile_);
}

void StandAloneFrontend::WriteToLog(int text) {
    Log()->Write(text::Texts(share_ + "/texts", language_).Text(text), "");
}

void StandAloneFrontend::Initiate(const std::shared_ptr<Object>& window) {
    window_ = window;
    WriteToLog(editorOpened);
}

void StandAloneFrontend::Terminate() {
    window_.reset();
    WriteToLog(editorClosed);
}

std::string StandAloneFrontend::ObjectKind(const host::RepositoryObject& object) {
    const auto kind = object.Attribute("Kind");
    const auto* text = kind.As<std::string>();
    return text && !text->empty() ? *text : object.TypeName();
}

std::shared_ptr<host::OriginSource> StandAloneFrontend::LoadSource(const std::string& path,
                                                                   const host::RepositoryObject& /*object*/) {
    return std::make_shared<SourceText>(path);
}

Value StandAloneFrontend::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<StandAloneFrontend> members{
        Getter<&StandAloneFrontend::ProjectObject>("ProjectObject"),
        Getter<&StandAloneFrontend::RepositoryOf>("Repository"),
        Getter<&StandAloneFrontend::Window>("Window"),
        Getter<&StandAloneFrontend::ErrorsFile>("ErrorsFile"),
        Getter<&StandAloneFrontend::Language>("Language"),
        Method<&StandAloneFrontend::GetCorvaneName>("GetCorvaneName"),
        Method<&StandAloneFrontend::Initiate>("Initiate"),
        Method<&StandAloneFrontend::Terminate>("Terminate"),
    };
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel::workbench
