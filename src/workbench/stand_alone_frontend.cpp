#include "workbench/stand_alone_frontend.h"

#include "platform/component/member_table.h"
#include "tessel/error.h"
#include "workbench/source_text.h"

namespace tessel::workbench {

StandAloneFrontend::StandAloneFrontend(WorkspaceFolder folder, std::string project, std::string share)
    : folder_(std::move(folder)),
      project_(std::move(project)),
      share_(std::move(share)),
      repository_(std::make_shared<StoredRepository>(folder_.File())) {}

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

const xml::Document& StandAloneFrontend::WorkspaceOptions() {
    const std::string path = folder_.Path() + "/Options/workspace.xml";
    if (const FileStamp stamp = StampOf(path); stamp != optionsStamp_) {
        options_ = xml::Document::Load(path);
        optionsStamp_ = stamp;
    }
    return options_;
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
        Method<&StandAloneFrontend::GetCorvaneName>("GetCorvaneName"),
    };
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel::workbench
