#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/add_on_command.h"
#include "cli/exit_codes.h"
#include "cli/headless_session.h"
#include "cli/import_command.h"
#include "cli/open_command.h"
#include "cli/output.h"
#include "cli/register_command.h"
#include "cli/report_command.h"
#include "cli/repository_command.h"
#include "cli/verify_command.h"
#include "runner/serve_calls.h"
#include "ui/main/open_window.h"
#include "ui/main/start_dialog.h"

namespace {

int NewCommand(const std::string& folder, const std::string& project) {
    tessel::MakeWorkspace(folder, project);
    fmt::print("Made the workspace {} with the project {}.\n", folder, project);
    return 0;
}

int CallCommand(const tessel::SessionOptions& options) {
    const auto headless = tessel::OpenHeadless(options);
    std::ios::sync_with_stdio(false);
    tessel::ServeCalls({headless.State(), *headless.questions}, std::cin, std::cout);
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
                        fmt::format("The project (default: the only one; of a new workspace \"{}\")",
                                    tessel::firstProject));
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
        AddRegister();
        AddAddOn();
    }

    // The exit code.
    int Run(int argc, char** argv) {
        try {
            const int code = Do(argc, argv);
            tessel::FinishOutput();
            return code;
        } catch (const std::exception& error) {
            tessel::Complain(error.what());
            return tessel::failureCode;
        }
    }

  private:
    int Do(int argc, char** argv) {
        try {
            app_.parse(argc, argv);
            return exitCode_;
        } catch (const CLI::ParseError& error) {
            return app_.exit(error) == 0 ? 0 : tessel::failureCode;
        }
    }

    void AddOpen() {
        auto* open = app_.add_subcommand("open", "Open the editor's window (the default)");
        open->add_option("path", path_, "The workspace's folder, or a file in it");
        open->add_option("--picture", window_.picture,
                         "Write a picture (PNG) of the window to this file and close");
        app_.final_callback([this, open] {
            if (app_.get_subcommands().empty() || *open)
                exitCode_ = tessel::OpenCommand(session_, path_, window_);
        });
    }

    void AddNew() {
        auto* make = app_.add_subcommand("new", "Make a workspace with one project");
        make->add_option("dir", folder_, "The folder to make it in, new or empty")->required();
        make->final_callback(
            [this] { exitCode_ = NewCommand(folder_, session_.project.value_or(tessel::firstProject)); });
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
        load->add_option("source", source_,
                         "The database: sqlite:PATH, or postgresql:CONNECTION as\nhost=SERVER dbname=NAME "
                         "[schema=NAME] or as //USER@SERVER/NAME")
            ->required();
        load->final_callback([this] { exitCode_ = tessel::RepositoryLoadCommand(session_, source_); });
    }

    void AddRegister() {
        auto* enter = app_.add_subcommand("register", "Enter the add-on classes of a library or a program");
        enter->add_option("file", file_, "A shared library, or with PROGID an executable")->required();
        enter->add_option("progid", progID_, "The identifier of the executable's class");
        auto* remove = app_.add_subcommand("unregister", "Take add-on classes out again");
        remove->add_option("file-or-progid", file_, "The file, or the identifier of one class")->required();
        for (auto* command : {enter, remove})
            command->add_flag("--system", isSystemWide_,
                              "In the installation's registry and not in your own");
        enter->final_callback([this] { exitCode_ = tessel::RegisterCommand(file_, progID_, Registry()); });
        remove->final_callback([this] { exitCode_ = tessel::UnregisterCommand(file_, Registry()); });
    }

    void AddAddOn() {
        auto* addOn = app_.add_subcommand("addon", "Work with add-on tools");
        addOn->require_subcommand(1);
        auto* list = addOn->add_subcommand("list", "List the classes that are registered");
        list->final_callback([this] { exitCode_ = tessel::AddOnListCommand(); });
        auto* run = addOn->add_subcommand("run", "Run a tool on the project");
        run->add_option("progid", run_.progID, "The identifier of its class")->required();
        run->add_option("param", run_.param, "The parameter text that it gets");
        run->add_flag("--verify", run_.verify, "Run it only when the schema has no errors");
        run->add_flag("--keep", run_.keep, "Keep what it changed also when it fails");
        run->add_option("--answers", run_.answers, "JSON array of answers to its questions");
        run->final_callback([this] { exitCode_ = tessel::AddOnRunCommand(session_, run_); });
    }

    [[nodiscard]] tessel::Registry Registry() const {
        return isSystemWide_ ? tessel::Registry::Installation : tessel::Registry::User;
    }

    CLI::App app_;
    tessel::SessionOptions session_;
    tessel::OpenOptions window_;
    std::optional<std::string> path_;
    std::string folder_;
    bool json_ = false;
    std::optional<std::string> out_;
    std::string source_;
    std::string file_;
    std::optional<std::string> progID_;
    bool isSystemWide_ = false;
    tessel::AddOnRunOptions run_;
    int exitCode_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    tessel::OccupyClosedStreams();
    return Program().Run(argc, argv);
}
