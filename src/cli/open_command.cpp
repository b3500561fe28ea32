#include "cli/open_command.h"

#include <cstdlib>
#include <filesystem>

#include "tessel/error.h"
#include "ui/main/start_dialog.h"
#include "workbench/workspace_folder.h"

namespace tessel {

namespace {

namespace fs = std::filesystem;

void Choose(SessionOptions& options, const std::string& path) {
    const auto place = workbench::WorkspaceFolder::Find(path);
    options.workspace = place.folder;
    if (!options.project) options.project = place.project;
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
    if (fs::exists(folder)) return folder.string();
    const fs::path copy = folder.string() + ".new";
    try {
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
        .find = [](const std::string& path) { return workbench::WorkspaceFolder::Find(path).folder; },
        .make =
            [](const std::string& folder, const std::string& project) {
                return workbench::WorkspaceFolder::Create(folder, project).Path();
            },
        .sample = SampleFolder,
    };
}

}  // namespace

int OpenCommand(SessionOptions options, const std::optional<std::string>& path, const OpenOptions& window) {
    if (path)
        Choose(options, *path);
    else if (!options.workspace && window.picture.empty() && HasDisplay() &&
             !workbench::WorkspaceFolder::IsWorkspace(".")) {
        const auto chosen = AskForWorkspace(*TextsFor(options), Offers());
        if (!chosen) return 0;
        options.workspace = *chosen;
    }
    const auto session = OpenSession(options);
    return RunWindow(session->state, session->frontend, window);
}

}  // namespace tessel
