#include "cli/session.h"

#include <filesystem>

#include "workbench/stand_alone_frontend.h"

namespace tessel {

namespace {

// The installation's share folder, found from where the program is.
std::string ShareFolder() {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    return (program.parent_path().parent_path() / "share" / "tessel").string();
}

}  // namespace

std::unique_ptr<Session> OpenSession(const SessionOptions& options) {
    const std::string share = ShareFolder();
    auto folder = workbench::WorkspaceFolder::Open(options.workspace);
    const std::string project = folder.ChooseProject(options.project);

    const std::string language = options.language.value_or(text::LanguageOfLocale());

    auto session = std::make_unique<Session>();
    session->frontend =
        std::make_shared<workbench::StandAloneFrontend>(std::move(folder), project, share, language);
    session->state.texts = std::make_shared<text::Texts>(share + "/texts", language);
    session->state.codePage = std::make_shared<text::CodePage>(text::CodePage::FromEnvironment());
    return session;
}

void MakeWorkspace(const std::string& folder, const std::string& project) {
    (void)workbench::WorkspaceFolder::Create(folder, project);
}

}  // namespace tessel
