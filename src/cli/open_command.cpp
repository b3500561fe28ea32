#include "cli/open_command.h"

#include <cstdlib>
#include <filesystem>

#include "cli/exit_codes.h"
#include "cli/output.h"
#include "tessel/error.h"
#include "ui/main/start_dialog.h"
#include "workbench/workspace_folder.h"

namespace tessel {

namespace {

namespace fs = std::filesystem;

void Take(SessionOptions& options, const StartChoice& choice) {
    options.workspace = choice.folder;
    if (!options.project) options.project = choice.project;
}

StartChoice Find(const std::string& path) {
    auto place = workbench::WorkspaceFolder::Find(path);
    return {std::move(place.folder), std::move(place.project)};
}

std::vector<std::string> ProjectsOf(const std::string& folder) {
    return workbench::WorkspaceFolder::Open(folder).Projects();
}

std::string UserDataFolder() {
    const char* chosen = std::getenv("XDG_DATA_HOME");
    if (chosen && *chosen == '/') return chosen;
    const char* home = std::getenv("HOME");
    if (home && *home) return std::string(home) + "/.local/share";
    throw Error(ErrorKind::File,
                "There is no folder for the sample: set the environment variable HOME or XDG_DATA_HOME.");
}

// The user's own copy of the sample, made when it is first wanted.
std::string SampleFolder() {
    const fs::path folder = UserDataFolder() + "/tessel/sample";
    const fs::path copy = folder.string() + ".new";
    try {
        if (fs::exists(folder)) return folder.string();
        fs::remove_all(copy);
        fs::create_directories(folder.parent_path());
        fs::copy(InstalledFolder("share") + "/sample", copy, fs::copy_options::recursive);
        for (const auto& entry : fs::recursive_directory_iterator(copy))
            fs::permissions(entry, fs::perms::owner_write, fs::perm_options::add);
        fs::rename(copy, folder);
    } catch (const fs::filesystem_error& error) {
        throw Error(ErrorKind::File, "The sample cannot be copied to " + folder.string() + ": " +
                                         error.code().message() + ".");
    }
    return folder.string();
}

StartOffers Offers() {
    return {
        .find = Find,
        .make =
            [](const std::string& folder, const std::string& project) {
                return StartChoice{workbench::WorkspaceFolder::Create(folder, project).Path(), project};
            },
        .sample =
            [] {
                return StartChoice{SampleFolder(), std::nullopt};
            },
        .projects = ProjectsOf,
    };
}

// Completes the options by asking; false when the user cancelled.
bool AskForRest(SessionOptions& options) {
    if (!options.workspace && !workbench::WorkspaceFolder::IsWorkspace(".")) {
        const auto chosen = AskForWorkspace(TextsFor(options), Offers());
        if (!chosen) return false;
        Take(options, *chosen);
    }
    if (options.project) return true;
    const auto projects = ProjectsOf(options.workspace.value_or("."));
    if (projects.size() <= 1) return true;
    options.project = AskForProject(*TextsFor(options), projects);
    return options.project.has_value();
}

// None when the user cancelled.
std::unique_ptr<Session> Choose(SessionOptions options, const std::optional<std::string>& path,
                                bool hasUser) {
    if (path) Take(options, Find(*path));
    if (hasUser && !AskForRest(options)) return nullptr;
    return OpenSession(options);
}

}  // namespace

int OpenCommand(const SessionOptions& options, const std::optional<std::string>& path,
                const OpenOptions& window) {
    const bool hasUser = window.picture.empty() && HasDisplay();
    std::unique_ptr<Session> session;
    try {
        session = Choose(options, path, hasUser);
    } catch (const std::exception& error) {
        Complain(error.what());
        if (hasUser) ShowFailure(TextsFor(options), error.what());
        return failureCode;
    }
    return session ? RunWindow(session->state, session->frontend, window) : 0;
}

}  // namespace tessel
