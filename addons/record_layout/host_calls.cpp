#include "host_calls.h"

#include "tessel/convert.h"
#include "tessel/error.h"

namespace tessel::layout {

namespace {

constexpr std::int32_t workspaceFolderItem = 4;

Value CallMethod(const std::shared_ptr<Object>& object, const char* member, Arguments arguments) {
    if (!object)
        throw Error(ErrorKind::Host, std::string("The editor has nothing that answers ") + member + ".");
    return object->Call(member, CallKind::Method, arguments);
}

std::shared_ptr<Collection> AsCollection(const Value& value) {
    const auto* collection = value.As<std::shared_ptr<Collection>>();
    return collection ? *collection : nullptr;
}

}  // namespace

std::vector<std::shared_ptr<Collection>> SelectRows(VNTWS& workspace, const std::string& sql) {
    std::vector<std::shared_ptr<Collection>> rows;
    const auto result = AsCollection(CallMethod(workspace.ProjectDB(), "Select", {sql}));
    if (!result) return rows;
    for (const auto& item : *result)
        if (auto row = AsCollection(item.value)) rows.push_back(std::move(row));
    return rows;
}

std::string TextOf(const Collection& row, const char* field) { return ToText(row.At(field)); }

std::int32_t NumberOf(const Collection& row, const char* field) {
    const Value& value = row.At(field);
    return value.IsNull() ? 0 : ToInt32(value);
}

std::string HostProperty(Object& frontend, const char* name) {
    try {
        Arguments none;
        const Value value = frontend.Call(name, CallKind::Get, none);
        return value.IsNull() ? std::string() : ToText(value);
    } catch (const Error& error) {
        if (error.Kind() == ErrorKind::Member) return "";
        throw;
    }
}

std::string WorkspaceFolder(Object& frontend) {
    Arguments item{workspaceFolderItem};
    return ToText(frontend.Call("GetCorvaneName", CallKind::Method, item));
}

std::shared_ptr<Collection> ShowForm(VNTWS& workspace, const std::shared_ptr<Collection>& form) {
    return AsCollection(CallMethod(workspace.ToolWindow(), "Form", {form}));
}

void ShowWarning(VNTWS& workspace, const std::string& text) {
    CallMethod(workspace.ToolWindow(), "Message", {text, "warning"});
}

}  // namespace tessel::layout
