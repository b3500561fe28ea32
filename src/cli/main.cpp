#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>

#include "cli/headless_session.h"
#include "cli/serve_calls.h"
#include "ui/main/open_window.h"

namespace {

constexpr const char* defaultProject = "Main";

int OpenCommand(const tessel::SessionOptions& options, const tessel::OpenOptions& window) {
    const auto session = tessel::OpenSession(options);
    return tessel::RunWindow(session->state, session->frontend, window);
}

int NewCommand(const std::string& folder, const std::string& project) {
    tessel::MakeWorkspace(folder, project);
    fmt::print("Made the workspace {} with the project {}.\n", folder, project);
    return 0;
}

int CallCommand(const tessel::SessionOptions& options) {
    const auto headless = tessel::OpenHeadless(options);
    std::ios::sync_with_stdio(false);
    tessel::ServeCalls(*WorkspaceOf(headless.State()), *headless.questions, std::cin, std::cout);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Designs and keeps the relational schemas of a workspace's projects.", "tessel");
    app.set_version_flag("--version", TESSEL_VERSION);
    tessel::SessionOptions session;
    app.add_option("--workspace", session.workspace, "The workspace's folder (default: the current folder)");
    app.add_option("--project", session.project,
                   "The project (default: the only one; of a new workspace \"Main\")");
    app.add_option("--lang", session.language, "The language (default: the locale's)")
        ->check(CLI::IsMember({"en", "ja", "ko"}));
    app.require_subcommand(0, 1);
    app.fallthrough();

    int exitCode = 0;
    tessel::OpenOptions window;
    auto* open = app.add_subcommand("open", "Open the editor's window (the default)");
    open->add_option("--picture", window.picture,
                     "Write a picture (PNG) of the window to this file and close");

    std::string folder;
    auto* make = app.add_subcommand("new", "Make a workspace with one project");
    make->add_option("dir", folder, "The folder to make it in, new or empty")->required();
    make->final_callback([&] { exitCode = NewCommand(folder, session.project.value_or(defaultProject)); });

    auto* call = app.add_subcommand("call", "Call members of the workspace: JSON lines in, JSON lines out");
    call->final_callback([&] { exitCode = CallCommand(session); });

    app.final_callback([&] {
        if (app.get_subcommands().empty() || *open) exitCode = OpenCommand(session, window);
    });

    try {
        app.parse(argc, argv);
        return exitCode;
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : tessel::failureCode;
    } catch (const std::exception& error) {
        fmt::print(stderr, "tessel: {}\n", error.what());
        return tessel::failureCode;
    }
}
