#include "workbench/stored_object.h"

#include <algorithm>

#include "platform/component/member_table.h"
#include "tessel/error.h"

namespace tessel::workbench {

StoredObject::StoredObject(std::shared_ptr<RepositoryFile> file, std::string identifier)
    : file_(std::move(file)), identifier_(std::move(identifier)) {}

std::shared_ptr<StoredObject> StoredObject::New(std::shared_ptr<RepositoryFile> file, const std::string& type,
                                                const std::string& name) {
    std::string identifier;
    bool nameIsFree = false;
    file->Change([&](RepositoryContents& contents) {
        identifier = contents.TakeIdentifier();
        nameIsFree = !contents.Find(type, name);
    });
    auto object = std::make_shared<StoredObject>(std::move(file), identifier);
    object->draft_ = Draft{type, nameIsFree, {{"Name", name}}};
    return object;
}

std::string StoredObject::TypeName() const {
    return draft_ && draft_->newType ? *draft_->newType : file_->Contents().TypeOf(identifier_);
}

std::string StoredObject::Label() const {
    for (const auto* name : {"Label", "Name"}) {
        const Value value = Attribute(name);
        if (const auto* text = value.As<std::string>(); text && !text->empty()) return *text;
    }
    return {};
}

std::vector<std::string> StoredObject::AttributeNames() const {
    std::vector<std::string> names;
    if (!draft_ || !draft_->newType) names = file_->Contents().AttributeNames(identifier_);
    if (!draft_) return names;
    for (const auto& [name, value] : draft_->attributes)
        if (std::ranges::count(names, name) == 0) names.push_back(name);
    return names;
}

Value StoredObject::Attribute(const std::string& name) const {
    if (draft_) {
        const auto& set = draft_->attributes;
        const auto latest = std::find_if(set.rbegin(), set.rend(),
                                         [&](const auto& attribute) { return attribute.first == name; });
        if (latest != set.rend()) return latest->second;
        if (draft_->newType) return Null{};
    }
    const auto value = file_->Contents().Attribute(identifier_, name);
    return value ? Value(*value) : Null{};
}

void StoredObject::SetAttribute(const std::string& name, const std::string& value) {
    if (draft_) {
        draft_->attributes.emplace_back(name, value);
        return;
    }
    file_->Change([&](RepositoryContents& contents) {
        contents.SetAttributes(identifier_, {{name, value}});
    });
}

void StoredObject::BeginChange() {
    if (!draft_) draft_ = Draft{};
}

void StoredObject::EndChange() {
    if (!draft_) throw Error(ErrorKind::Host, "The object " + identifier_ + " has no change to end.");
    file_->Change([this](RepositoryContents& contents) {
        if (draft_->newType) AddNew(contents);
        contents.SetAttributes(identifier_, draft_->attributes);
    });
    draft_.reset();
}

void StoredObject::AddNew(RepositoryContents& contents) const {
    const std::string name = *Attribute("Name").As<std::string>();
    if (draft_->nameWasFree && contents.Find(*draft_->newType, name))
        throw Error(ErrorKind::Host, "The repository holds an object of type " + *draft_->newType +
                                         " with the name \"" + name + "\" meanwhile.");
    contents.AddObject(identifier_, *draft_->newType);
}

void StoredObject::AddRelation(const std::string& relation, const host::RepositoryObject& other) {
    file_->Change([&](RepositoryContents& contents) {
        contents.AddRelation(identifier_, relation, other.Identifier());
    });
}

std::vector<std::shared_ptr<host::RepositoryObject>> StoredObject::Related(
    const std::string& relation) const {
    std::vector<std::shared_ptr<host::RepositoryObject>> related;
    for (const auto& identifier : file_->Contents().Related(identifier_, relation)) {
        related.push_back(std::make_shared<StoredObject>(file_, identifier));
    }
    return related;
}

std::shared_ptr<Collection> StoredObject::RelatedCollection(const std::string& relation) const {
    return CollectionOf(Related(relation));
}

std::shared_ptr<Collection> CollectionOf(
    const std::vector<std::shared_ptr<host::RepositoryObject>>& objects) {
    auto collection = std::make_shared<Collection>();
    for (const auto& object : objects) collection->Add(std::shared_ptr<Object>(object), object->Identifier());
    return collection;
}

Value StoredObject::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<StoredObject> members{
        Getter<&StoredObject::Identifier>("Identifier"),
        Getter<&StoredObject::TypeName>("TypeName"),
        Getter<&StoredObject::Label>("Label"),
        Method<&StoredObject::Attribute>("Attribute"),
        Method<&StoredObject::SetAttribute>("SetAttribute"),
        Method<&StoredObject::BeginChange>("BeginChange"),
        Method<&StoredObject::EndChange>("EndChange"),
        Method<&StoredObject::AddRelation>("AddRelation"),
        Method<&StoredObject::RelatedCollection>("Related"),
    };
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel::workbench
