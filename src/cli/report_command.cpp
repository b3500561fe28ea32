#include "cli/report_command.h"

#include <fmt/format.h>

#include <filesystem>

#include "cli/exit_codes.h"
#include "cli/output.h"
#include "engine/scrivo_add_on.h"
#include "platform/files/file_service.h"
#include "report/schema_diagram.h"
#include "workbench/generator.h"

namespace tessel {

namespace {

namespace item = host::name_item;

// Absolute and without "..", as the file service wants paths.
std::string FolderOf(const std::string& given) {
    if (given.empty())
        throw Error(ErrorKind::Argument, "The folder for the report has no name; give one, or none.");
    const auto path = std::filesystem::absolute(given).lexically_normal();
    std::string folder = (path.has_filename() ? path : path.parent_path()).string();
    if (folder.find('\\') == std::string::npos) return folder;
    throw Error(ErrorKind::File,
                "The folder " + folder + " cannot take the report: its path holds a '\\'; choose another.");
}

std::shared_ptr<workbench::StandAloneGenerator> MakeGenerator(Session& session,
                                                              const std::optional<std::string>& out) {
    host::Frontend& frontend = *session.frontend;
    return std::make_shared<workbench::StandAloneGenerator>(workbench::StandAloneGenerator::Settings{
        .outputFolder = out ? FolderOf(*out) : frontend.GetCorvaneName(item::workspaceFolder) + "/Output",
        .share = frontend.GetCorvaneName(item::images),
        .title = frontend.GetCorvaneName(item::workspaceName),
        .language = session.state.texts->Language(),
        .drawing = [&state = session.state] { return SchemaDiagram(state.Database()); },
        .log = Complain,
    });
}

}  // namespace

int ReportCommand(const SessionOptions& options, const std::optional<std::string>& out) {
    const auto session = OpenSession(options);
    const std::string project = session->frontend->GetCorvaneName(item::projectName);
    const auto generator = MakeGenerator(*session, out);
    const auto page = std::make_shared<workbench::GeneratorPage>(project, project);
    ScrivoAddOn addOn(session->state);
    const int result = addOn.Run(session->frontend, generator, page);
    if (result == 0) generator->WriteIndex();
    if (result < 0)
        throw Error(ErrorKind::Missing,
                    "There is no schema database at " + files::NativePath(session->state.databaseFilename) +
                        "; restore it from a backup, or open the project to start with an empty schema.");
    if (result > 0) {
        if (const auto& why = addOn.WhyNotOpened(); !why.empty()) Complain(why);
        return failureCode;
    }
    fmt::print("{}/{}/Main.htm\n", generator->OutputFolder(), project);
    return 0;
}

}  // namespace tessel
