#include "workbench/stored_repository.h"

#include "platform/component/member_table.h"
#include "tessel/error.h"
#include "workbench/stored_object.h"

namespace tessel::workbench {

namespace {

constexpr std::pair<const char*, const char*> icons[] = {{"DBSCHEMA", "DBSchema.svg"},
                                                         {"TABLE", "Table.svg"}};

}  // namespace

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

std::vector<std::shared_ptr<host::RepositoryObject>> StoredRepository::PrepareCollection(
    const host::RepositoryObject& project, const std::string& type) {
    std::vector<std::shared_ptr<host::RepositoryObject>> objects;
    for (const auto& identifier : file_->PresentContents().ObjectsOf(project.Identifier(), type)) {
        objects.push_back(std::make_shared<StoredObject>(file_, identifier));
    }
    return objects;
}

std::string StoredRepository::TypeNameOf(const std::string& identifier) {
    const auto* contents = &file_->Contents();
    if (!contents->HasObject(identifier)) contents = &file_->PresentContents();
    return contents->HasObject(identifier) ? contents->TypeOf(identifier) : std::string();
}

std::string StoredRepository::EntityIcon(const std::string& type) {
    for (const auto& [entity, icon] : icons)
        if (type == entity) return icon;
    throw Error(ErrorKind::Host, "Objects of the type " + type + " have no icon.");
}

std::shared_ptr<Collection> StoredRepository::PreparedCollection(const host::RepositoryObject& project,
                                                                 const std::string& type) {
    return CollectionOf(PrepareCollection(project, type));
}

Value StoredRepository::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<StoredRepository> members{
        Method<&StoredRepository::FindObject>("FindObject"),
        Method<&StoredRepository::NewObject>("NewObject"),
        Method<&StoredRepository::ObjectById>("Object"),
        Method<&StoredRepository::PreparedCollection>("PrepareCollection"),
        Method<&StoredRepository::EntityIcon>("EntityIcon"),
    };
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel::workbench
