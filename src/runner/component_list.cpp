#include "runner/component_list.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "platform/files/file_lock.h"
#include "platform/settings/settings.h"
#include "platform/text/utf8.h"
#include "platform/xml/document.h"
#include "runner/trusted_path.h"
#include "tessel/error.h"

namespace tessel {

namespace {

namespace fs = std::filesystem;

constexpr const char* rootName = "COMPONENTS";
constexpr const char* className = "CLASS";
constexpr const char* progIDName = "PROGID";

constexpr std::pair<RegisteredClass::Kind, const char*> kinds[] = {
    {RegisteredClass::Kind::Library, "LIBRARY"}, {RegisteredClass::Kind::Program, "PROGRAM"}};

const char* NameOf(RegisteredClass::Kind kind) {
    return std::ranges::find(kinds, kind, [](const auto& known) { return known.first; })->second;
}

fs::path FolderOf(const std::string& registry) { return fs::path(registry).parent_path(); }

RegisteredClass ReadClass(const xml::Element& element, const std::string& path, std::size_t position) {
    RegisteredClass read{.progID = element.Attribute(progIDName).value_or("")};
    int files = 0;
    for (const auto& [kind, name] : kinds) {
        const auto file = element.Attribute(name);
        if (!file || file->empty()) continue;
        ++files;
        read.kind = kind;
        read.file = (FolderOf(path) / *file).lexically_normal();
    }
    if (read.progID.empty() || files != 1)
        throw Error(ErrorKind::Xml,
                    fmt::format("{}: {} number {} must have a {}, and either a LIBRARY or a PROGRAM.", path,
                                className, position, progIDName));
    return read;
}

std::vector<xml::Element> ClassElements(const xml::Document& document) {
    auto elements = document.Root().Children();
    std::erase_if(elements, [](const auto& element) { return element.Name() != className; });
    return elements;
}

std::vector<RegisteredClass> ReadClasses(const xml::Document& document, const std::string& path) {
    if (document.Root().Name() != rootName)
        throw Error(ErrorKind::Xml, fmt::format("{}: its root element must be {}.", path, rootName));
    std::vector<RegisteredClass> classes;
    for (const auto& element : ClassElements(document))
        classes.push_back(ReadClass(element, path, classes.size() + 1));
    return classes;
}

// Also what cannot be used is there: a link that leads nowhere, or what cannot be looked at.
bool IsThere(const fs::path& path) {
    std::error_code fault;
    return fs::symlink_status(path, fault).type() != fs::file_type::not_found;
}

xml::Document LoadOrMake(const std::string& path) {
    if (IsThere(path)) {
        std::error_code fault;
        if (!fs::is_regular_file(path, fault))
            throw Error(ErrorKind::File,
                        fmt::format("{} is no file that can be read; remove what stands there.", path));
        RefuseUntrusted(path);
        return xml::Document::Load(path);
    }
    xml::Document document;
    document.AppendRoot(rootName);
    return document;
}

// A path below the registry's folder is entered from there, so that the folder can be moved.
std::string EnteredPath(const std::string& file, const std::string& registry) {
    const std::string folder = FolderOf(registry).string() + "/";
    return file.starts_with(folder) ? file.substr(folder.size()) : file;
}

void MakeFolderOf(const std::string& path) {
    std::error_code fault;
    fs::create_directories(FolderOf(path), fault);
    if (fault)
        throw Error(ErrorKind::File, fmt::format("The folder {} cannot be made: {}.", FolderOf(path).string(),
                                                 fault.message()));
}

// Removes the elements of the classes for which `isMeant` holds; their identifiers.
template <typename Condition>
std::vector<std::string> RemoveWhere(xml::Document& document, const std::string& path, Condition isMeant) {
    const auto classes = ReadClasses(document, path);
    auto elements = ClassElements(document);
    std::vector<std::string> removed;
    for (std::size_t i = 0; i < classes.size(); ++i) {
        if (!isMeant(classes[i])) continue;
        removed.push_back(classes[i].progID);
        elements[i].Remove();
    }
    return removed;
}

void Enter(xml::Document& document, const RegisteredClass& entered, const std::string& path) {
    auto element = document.Root().AppendChild(className);
    element.SetAttribute(progIDName, entered.progID);
    element.SetAttribute(NameOf(entered.kind), EnteredPath(entered.file, path));
}

template <typename Change>
void ChangeRegistry(const std::string& path, Change change) {
    MakeFolderOf(path);
    RefuseUntrusted(FolderOf(path));
    const files::FileLock lock(FolderOf(path) / ".components.lock");
    xml::Document document = LoadOrMake(path);
    change(document);
    document.Save(path);
}

std::optional<std::string> UserPath() {
    try {
        return UserComponentsPath();
    } catch (const Error&) {
        return std::nullopt;  // a user without a home has no registry either
    }
}

void RefuseUnfitName(const RegisteredClass& entered) {
    const auto isControl = [](char32_t character) { return character < U' ' || character == U'\x7f'; };
    const bool isEmpty = text::Trim(entered.progID).empty();
    if (!isEmpty && std::ranges::none_of(text::Decode(entered.progID), isControl)) return;
    throw Error(ErrorKind::Component,
                fmt::format("{}: A class cannot be registered under {}.", entered.file,
                            isEmpty ? "an empty identifier" : "an identifier with control characters"));
}

}  // namespace

ComponentFile ReadComponents(const std::string& path) {
    ComponentFile file{.path = path, .classes = {}, .fault = {}};
    try {
        file.classes = ReadClasses(LoadOrMake(path), path);
    } catch (const std::exception& error) {
        file.fault = error.what();
    }
    return file;
}

ComponentList ComponentList::Load(const std::string& programFolder) {
    ComponentList list;
    if (const auto user = UserPath()) list.files_.push_back(ReadComponents(*user));
    list.files_.push_back(ReadComponents(InstallationComponentsPath(programFolder)));
    return list;
}

const RegisteredClass& ComponentList::ClassOf(std::string_view progID) const {
    std::string faults;
    for (const auto& file : files_) {
        for (const auto& known : file.classes)
            if (text::SameText(known.progID, progID)) return known;
        if (!file.fault.empty()) faults += " " + file.fault;
    }
    throw Error(ErrorKind::Component,
                fmt::format("There is no class with the identifier \"{}\".{}", progID, faults));
}

std::string InstallationComponentsPath(const std::string& programFolder) {
    return programFolder + "/components.xml";
}

void EnterClasses(const std::string& path, const std::vector<RegisteredClass>& classes) {
    for (const auto& entered : classes) RefuseUnfitName(entered);
    ChangeRegistry(path, [&](xml::Document& document) {
        for (const auto& entered : classes) {
            (void)RemoveWhere(document, path, [&](const auto& known) {
                return text::SameText(known.progID, entered.progID);
            });
            Enter(document, entered, path);
        }
    });
}

std::vector<std::string> RemoveClasses(const std::string& path, std::string_view progIDOrFile) {
    std::vector<std::string> removed;
    if (!IsThere(path)) return removed;
    ChangeRegistry(path, [&](xml::Document& document) {
        removed = RemoveWhere(document, path, [&](const auto& known) {
            return text::SameText(known.progID, progIDOrFile) || known.file == progIDOrFile;
        });
    });
    return removed;
}

}  // namespace tessel
