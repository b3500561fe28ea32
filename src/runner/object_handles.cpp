#include "runner/object_handles.h"

#include "host/frontend.h"
#include "schema/database_object.h"
#include "schema/tool_window.h"

namespace tessel {

namespace {

Json Described(const Object& object) {
    if (dynamic_cast<const DatabaseObject*>(&object)) return {{"object", "database"}};
    if (dynamic_cast<const ToolWindow*>(&object)) return {{"object", "window"}};
    if (const auto* entry = dynamic_cast<const host::RepositoryObject*>(&object))
        return {{"object", entry->TypeName()}, {"identifier", entry->Identifier()}};
    return {{"object", "object"}};
}

}  // namespace

int ObjectHandles::HandleOf(const std::shared_ptr<Object>& object) {
    const auto [place, isNew] = handles_.emplace(object.get(), static_cast<int>(objects_.size()) + 1);
    if (isNew) objects_.push_back(object);
    return place->second;
}

Json ObjectHandles::ToJson(const std::shared_ptr<Object>& object) {
    Json json = Described(*object);
    json["handle"] = HandleOf(object);
    return json;
}

std::shared_ptr<Object> ObjectHandles::At(const Json& handle) const {
    if (handle.is_number_unsigned()) {
        const auto number = handle.get<std::uint64_t>();
        if (number >= 1 && number <= objects_.size()) return objects_[number - 1];
    }
    throw Error(ErrorKind::JsonLine, "There is no object with the handle " + LineOf(handle) + ".");
}

std::shared_ptr<Object> ObjectHandles::FromJson(const Json& json) { return At(json["handle"]); }

}  // namespace tessel
