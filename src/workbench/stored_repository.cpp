#include "workbench/stored_repository.h"

#include "platform/component/member_table.h"
#include "tessel/error.h"
#include "workbench/stored_object.h"

namespace tessel::workbench {

std::shared_ptr<host::RepositoryObject> StoredRepository::FindObject(const std::string& type,
                                                                     const std::string& name) {
    auto identifier = file_->Contents().Find(type, name);
    if (!identifier) identifier = file_->PresentContents().Find(type, name);
    if (identifier) return std::make_shared<StoredObject>(file_, *identifier);
    throw Error(ErrorKind::Host, "There is no object of the type " + type + " named \"" + name + "\".");
}

std::shared_ptr<host::RepositoryObject> StoredRepository::NewObject(const std::string& type,
                                                                    const std::string& name) {
    return StoredObject::New(file_, type, name);
}

std::shared_ptr<host::RepositoryObject> StoredRepository::ObjectById(const std::string& identifier) {
    if (file_->Contents().HasObject(identifier) || file_->PresentContents().HasObject(identifier)) {
        return std::make_shared<StoredObject>(file_, identifier);
    }
    throw Error(ErrorKind::Host, "There is no object with the identifier " + identifier + ".");
}

Value StoredRepository::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<StoredRepository> members{
        Method<&StoredRepository::FindObject>("FindObject"),
        Method<&StoredRepository::NewObject>("NewObject"),
        Method<&StoredRepository::ObjectById>("Object"),
    };
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel::workbench
