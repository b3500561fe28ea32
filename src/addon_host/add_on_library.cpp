#include "addon_host/add_on_library.h"

#include <filesystem>

#include "addon_host/remote_workspace.h"

namespace tessel {

void AddOnLibrary::ListedClasses::Add(const std::string& progId, Factory factory) {
    names.push_back(progId);
    ClassRegistry::Add(progId, std::move(factory));
}

// A bare file name would be looked for among the system's libraries.
AddOnLibrary::AddOnLibrary(const std::string& path) {
    classes_.LoadComponent(std::filesystem::absolute(path).string());
}

Json AddOnLibrary::Run(const std::string& progId, const std::shared_ptr<Editor>& editor,
                       const std::string& parameter) const {
    const auto addOn = classes_.Create(progId);
    Arguments arguments{editor->Named("Frontend"),
                        std::shared_ptr<Object>(std::make_shared<RemoteWorkspace>(editor)), parameter};
    return ToJson(addOn->Call("Run", CallKind::Method, arguments), *editor);
}

}  // namespace tessel
