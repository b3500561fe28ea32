#include "cli/register_command.h"

#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>

#include "cli/session.h"
#include "platform/settings/settings.h"
#include "runner/component_list.h"
#include "runner/library_classes.h"
#include "runner/trusted_path.h"
#include "tessel/error.h"

namespace tessel {

namespace {

namespace fs = std::filesystem;

std::string PathOf(Registry registry) {
    return registry == Registry::User ? UserComponentsPath()
                                      : InstallationComponentsPath(InstalledFolder("libexec"));
}

std::string AbsolutePath(const std::string& file) { return fs::absolute(file).lexically_normal(); }

RegisteredClass Program(const std::string& progID, const std::string& path) {
    if (fs::is_directory(path) || access(path.c_str(), X_OK) != 0)
        throw Error(ErrorKind::Component,
                    fmt::format("{} is no program that you may run; is it executable?", path));
    return {.progID = progID, .kind = RegisteredClass::Kind::Program, .file = path};
}

std::vector<RegisteredClass> ClassesIn(const std::string& path) {
    std::vector<RegisteredClass> classes;
    for (const auto& progID : LibraryClasses(path, InstalledFolder("libexec")))
        classes.push_back({.progID = progID, .kind = RegisteredClass::Kind::Library, .file = path});
    if (classes.empty())
        throw Error(ErrorKind::Component,
                    fmt::format("The library {} has no classes. A program is registered with its "
                                "identifier: tessel register FILE PROGID",
                                path));
    return classes;
}

}  // namespace

int RegisterCommand(const std::string& file, const std::optional<std::string>& progID, Registry registry) {
    const std::string path = AbsolutePath(file);
    RefuseUntrusted(path);
    const auto classes = progID ? std::vector{Program(*progID, path)} : ClassesIn(path);
    EnterClasses(PathOf(registry), classes);
    for (const auto& entered : classes) fmt::print("{}: {}\n", entered.progID, entered.file);
    return 0;
}

int UnregisterCommand(const std::string& fileOrProgID, Registry registry) {
    const std::string path = PathOf(registry);
    auto removed = RemoveClasses(path, fileOrProgID);
    if (removed.empty()) removed = RemoveClasses(path, AbsolutePath(fileOrProgID));
    if (removed.empty())
        throw Error(ErrorKind::Component,
                    fmt::format("{} has no class of the name or file {}.", path, fileOrProgID));
    for (const auto& progID : removed) fmt::print("{}\n", progID);
    return 0;
}

}  // namespace tessel
