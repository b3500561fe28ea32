#include "platform/component/class_registry.h"

#include <dlfcn.h>

#include "platform/text/utf8.h"
#include "tessel/error.h"

namespace tessel {

struct ClassRegistry::Library {
    explicit Library(const std::string& path) : handle(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (!handle) Refuse(path, dlerror());
    }
    ~Library() {
        if (!canUnload || canUnload() == 0) dlclose(handle);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    template <typename Function>
    Function EntryPoint(const char* name, const std::string& path) const {
        void* entry = dlsym(handle, name);
        if (!entry) Refuse(path, std::string("it has no entry point ") + name);
        return reinterpret_cast<Function>(entry);
    }

    [[noreturn]] static void Refuse(const std::string& path, const std::string& why) {
        throw Error(ErrorKind::Component, "The component " + path + " cannot be loaded: " + why + ".");
    }

    void* handle;
    decltype(&TesselCanUnloadNow) canUnload = nullptr;
};

void ClassRegistry::Add(const std::string& progId, Factory factory) {
    factories_[text::LowerAscii(progId)] = std::move(factory);
}

void ClassRegistry::Remove(const std::string& progId) { factories_.erase(text::LowerAscii(progId)); }

std::shared_ptr<Object> ClassRegistry::Create(const std::string& progId) const {
    const auto factory = factories_.find(text::LowerAscii(progId));
    if (factory == factories_.end())
        throw Error(ErrorKind::Component, "There is no class with the identifier \"" + progId + "\".");
    return factory->second();
}

void ClassRegistry::LoadComponent(const std::string& path) {
    auto library = std::make_shared<Library>(path);
    library->canUnload = library->EntryPoint<decltype(&TesselCanUnloadNow)>("TesselCanUnloadNow", path);
    const auto enter = library->EntryPoint<decltype(&TesselRegisterServer)>("TesselRegisterServer", path);
    libraries_.push_back(std::move(library));
    if (enter(this) != 0) Library::Refuse(path, "it could not enter its classes");
}

}  // namespace tessel
