#include "workbench/workspace_folder.h"

#include <algorithm>

#include <filesystem>

#include "platform/files/file_error.h"
#include "platform/files/file_service.h"
#include "tessel/error.h"
#include "workbench/project_name.h"

namespace tessel::workbench {
namespace fs = std::filesystem;
namespace {

constexpr const char* repositoryName = "/workspace.xml";

std::string AbsoluteFolder(const std::string& folder) {
    std::error_code fault;
    auto path = fs::weakly_canonical(fs::absolute(folder, fault), fault);
    if (fault) files::ThrowReadError("folder", folder, "found", fault.value());
    if (!path.has_filename()) path = path.parent_path();
    if (path.string().find('\\') == std::string::npos) return path.string();
    throw Error(ErrorKind::File, "The folder " + path.string() +
                                     " cannot be a workspace: its path holds a '\\'; move or rename it.");
}

void RequireEmpty(const std::string& path) {
    std::error_code fault;
    const auto empty = fs::is_empty(path, fault);
    if (fault) files::ThrowReadError("folder", path, "read", fault.value());
    if (!empty) {
        throw Error(ErrorKind::File,
                    "The folder " + path + " is not empty; choose another for the new workspace.");
    }
}

void WriteOptions(const std::string& path) {
    xml::Document options;
    auto encoding = options.AppendRoot("OPTIONS").AppendChild("LIST");
    encoding.SetAttribute("NAME", "ObjectComputerEncoding");
    encoding.SetAttribute("VALUE", "ASCII");
    options.Save(path);
}

void WriteRepository(const std::string& path, const std::string& projectName) {
    RepositoryContents contents;
    const auto project = contents.TakeIdentifier();
    contents.AddObject(project, projectType);
    contents.SetAttributes(project, {{"Name", projectName}});
    files::ReplaceFile(path, contents.Text());
}

// workspace.xml comes last, because it alone makes the folder a workspace.
void Fill(const std::string& path, const std::string& projectName) {
    for (const auto& part : {std::string("/Options"), std::string("/Output"), std::string("/Projects"),
                             "/Projects/" + projectName}) {
        files::CreateFolder(path + part);
    }
    WriteOptions(path + "/Options/workspace.xml");
    WriteRepository(path + repositoryName, projectName);
}

// Leaves the folder as Create found it, so that it can be tried again.
void Empty(const std::string& path, bool wasThere) {
    std::error_code ignored;
    for (const auto* part : {"/Options", "/Output", "/Projects"}) fs::remove_all(path + part, ignored);
    if (!wasThere) fs::remove(path, ignored);
}

// The project of a path from the workspace's folder on, such as Projects/NAME/DBSCHEMA/NAME.mdb.
std::optional<std::string> ProjectIn(const fs::path& relative) {
    auto part = relative.begin();
    if (part == relative.end() || *part != "Projects" || ++part == relative.end()) return std::nullopt;
    return part->string();
}

std::string Listed(const std::vector<std::string>& names) {
    std::string list;
    for (const auto& name : names) list += (list.empty() ? "" : ", ") + name;
    return list;
}

}  // namespace

WorkspaceFolder WorkspaceFolder::Create(const std::string& folder, const std::string& projectName) {
    CheckProjectName(projectName);
    const auto path = AbsoluteFolder(folder);
    const auto wasThere = files::FolderExists(path);
    wasThere ? RequireEmpty(path) : files::CreateFolder(path);
    try {
        Fill(path, projectName);
    } catch (...) {
        Empty(path, wasThere);
        throw;
    }
    return WorkspaceFolder(path);
}

WorkspaceFolder WorkspaceFolder::Open(const std::string& folder) {
    const auto path = AbsoluteFolder(folder);
    if (files::FileExists(path + repositoryName)) return WorkspaceFolder(path);
    throw Error(ErrorKind::File,
                "The folder " + path +
                    " is no workspace: there is no file workspace.xml in it; choose another folder "
                    "or make a workspace first.");
}

bool WorkspaceFolder::IsWorkspace(const std::string& folder) {
    return files::FileExists(AbsoluteFolder(folder) + repositoryName);
}

WorkspaceFolder::Place WorkspaceFolder::Find(const std::string& path) {
    const fs::path start = AbsoluteFolder(path);
    for (fs::path folder = start;; folder = folder.parent_path()) {
        if (IsWorkspace(folder.string()))
            return {folder.string(), ProjectIn(start.lexically_relative(folder))};
        if (!folder.has_relative_path()) break;
    }
    throw Error(ErrorKind::File, start.string() +
                                     " belongs to no workspace: neither it nor a folder above it "
                                     "holds a file workspace.xml; choose another.");
}

WorkspaceFolder::WorkspaceFolder(std::string path)
    : path_(std::move(path)), file_(std::make_shared<RepositoryFile>(path_ + repositoryName)) {}

std::string WorkspaceFolder::Name() const {
    return file_->Contents().WorkspaceName().value_or(fs::path(path_).filename().string());
}

std::vector<std::string> WorkspaceFolder::Projects() const { return file_->Contents().NamesOf(projectType); }

std::string WorkspaceFolder::ChooseProject(const std::optional<std::string>& name) const {
    const auto projects = Projects();
    if (projects.empty()) throw Error(ErrorKind::Host, "The workspace " + path_ + " has no project.");
    if (name && std::ranges::count(projects, *name) > 0) return *name;
    if (!name && projects.size() == 1) return projects.front();
    const auto fault = name ? " has no project \"" + *name + "\"" : std::string(" has more than one project");
    throw Error(ErrorKind::Host,
                "The workspace " + path_ + fault + "; choose one of these: " + Listed(projects) + ".");
}

}  // namespace tessel::workbench
