#include "cli/session.h"

#include <filesystem>

#include "workbench/stand_alone_frontend.h"

namespace tessel {

namespace {

std::string LanguageOf(const SessionOptions& options) {
    return options.language.value_or(text::LanguageOfLocale());
}

}  // namespace

std::string InstalledFolder(const char* kind) {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    return (program.parent_path().parent_path() / kind / "tessel").string();
}

std::shared_ptr<const text::Texts> TextsFor(const SessionOptions& options) {
    return std::make_shared<text::Texts>(InstalledFolder("share") + "/texts", LanguageOf(options));
}

std::unique_ptr<Session> OpenSession(const SessionOptions& options) {
    const std::string share = InstalledFolder("share");
    auto folder = workbench::WorkspaceFolder::Open(options.workspace.value_or("."));
    const std::string project = folder.ChooseProject(options.project);

    auto session = std::make_unique<Session>();
    session->frontend = std::make_shared<workbench::StandAloneFrontend>(std::move(folder), project, share,
                                                                        LanguageOf(options));
    session->state.programFolder = InstalledFolder("libexec");
    session->state.texts = TextsFor(options);
    session->state.codePage = std::make_shared<text::CodePage>(text::CodePage::FromEnvironment());
    return session;
}

void MakeWorkspace(const std::string& folder, const std::string& project) {
    (void)workbench::WorkspaceFolder::Create(folder, project);
}

}  // namespace tessel
