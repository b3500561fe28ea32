#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>

#include "cli/headless_session.h"
#include "cli/import_command.h"
#include "cli/report_command.h"
#include "cli/repository_command.h"
#include "cli/serve_calls.h"
#include "cli/verify_command.h"
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

// The command line, a function for each command.
class Program {
  public:
    Program() : app_("Designs and keeps the relational schemas of a workspace's projects.", "tessel") {
        app_.set_version_flag("--version", TESSEL_VERSION);
        app_.add_option("--workspace", session_.workspace,
                        "The workspace's folder (default: the current folder)");
        app_.add_option("--project", session_.project,
                        "The project (default: the only one; of a new workspace \"Main\")");
        app_.add_option("--lang", session_.language, "The language (default: the locale's)")
            ->check(CLI::IsMember({"en", "ja", "ko"}));
        app_.require_subcommand(0, 1);
        app_.fallthrough();
        AddOpen();
        AddNew();
        AddCall();
        AddVerify();
        AddImport();
        AddReport();
        AddRepository();
    }

    // The exit code.
    int Run(int argc, char** argv) {
        try {
            app_.parse(argc, argv);
            if (std::fflush(stdout) != 0)
                throw tessel::Error(tessel::ErrorKind::File, "The output cannot be written.");
            return exitCode_;
        } catch (const CLI::ParseError& error) {
            return app_.exit(error) == 0 ? 0 : tessel::failureCode;
        } catch (const std::exception& error) {
            fmt::print(stderr, "tessel: {}\n", error.what());
            return tessel::failureCode;
        }
    }

  private:
    void AddOpen() {
        auto* open = app_.add_subcommand("open", "Open the editor's window (the default)");
        open->add_option("--picture", window_.picture,
                         "Write a picture (PNG) of the window to this file and close");
        app_.final_callback([this, open] {
            if (app_.get_subcommands().empty() || *open) exitCode_ = OpenCommand(session_, window_);
        });
    }

    void AddNew() {
        auto* make = app_.add_subcommand("new", "Make a workspace with one project");
        make->add_option("dir", folder_, "The folder to make it in, new or empty")->required();
        make->final_callback(
            [this] { exitCode_ = NewCommand(folder_, session_.project.value_or(defaultProject)); });
    }

    void AddCall() {
        auto* call =
            app_.add_subcommand("call", "Call members of the workspace: JSON lines in, JSON lines out");
        call->final_callback([this] { exitCode_ = CallCommand(session_); });
    }

    void AddVerify() {
        auto* verify = app_.add_subcommand("verify", "Check the schema and list what is wrong with it");
        verify->add_flag("--json", json_, "List the findings as JSON");
        verify->final_callback([this] { exitCode_ = tessel::VerifyCommand(session_, json_); });
    }

    void AddImport() {
        auto* bring = app_.add_subcommand("import", "Bring linked tables up to date with the repository");
        bring->final_callback([this] { exitCode_ = tessel::ImportCommand(session_); });
    }

    void AddReport() {
        auto* report = app_.add_subcommand("report", "Write a page that describes the schema");
        report->add_option("--out", out_, "The folder to write to (default: the workspace's Output)");
        report->final_callback([this] { exitCode_ = tessel::ReportCommand(session_, out_); });
    }

    void AddRepository() {
        auto* repository = app_.add_subcommand("repository", "Work on the workspace's repository");
        repository->require_subcommand(1);
        auto* load = repository->add_subcommand("load", "Fill the repository from a real database");
        load->add_option("source", source_, "The database: sqlite:PATH")->required();
        load->final_callback([this] { exitCode_ = tessel::RepositoryLoadCommand(session_, source_); });
    }

    CLI::App app_;
    tessel::SessionOptions session_;
    tessel::OpenOptions window_;
    std::string folder_;
    bool json_ = false;
    std::optional<std::string> out_;
    std::string source_;
    int exitCode_ = 0;
};

}  // namespace

int main(int argc, char** argv) { return Program().Run(argc, argv); }
