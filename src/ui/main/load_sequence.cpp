#include <QApplication>

#include "import/import_db_schema.h"
#include "platform/files/file_service.h"
#include "schema/action.h"
#include "schema/activity.h"
#include "ui/main/frm_main.h"
#include "ui/rules/messages.h"
#include "ui/rules/project_options.h"
#include "verify/db_check.h"

namespace tessel {

namespace {

constexpr int helpOnWindowText = 2049;
constexpr int aboutText = 2050;
constexpr int loadingText = 2062;
constexpr int sqlTypesText = 2063;
constexpr int tablesText = 2064;
constexpr int lastErrorsText = 1201;
constexpr int importActivity = 2081;
constexpr int importedText = 2082;
constexpr int upToDateText = 2083;
constexpr int failedText = 2090;
constexpr int loadingSteps = 4;
constexpr int stepLength = 1;

std::string ResultOf(const text::Texts& texts, const ImportOutcome& outcome) {
    if (outcome.failure) return texts.Format(failedText, {*outcome.failure});
    if (outcome.added.empty() && outcome.dropped.empty()) return texts.Text(upToDateText);
    return texts.Format(importedText,
                        {std::to_string(outcome.added.size()), std::to_string(outcome.dropped.size())});
}

}  // namespace

void frmMain::SetCaptions() {
    const text::Texts& texts = *state_.texts;
    host::Frontend& frontend = state_.Frontend();
    const auto shown = [](const std::string& text) { return QString::fromStdString(text); };
    QApplication::setApplicationName(shown(state_.Title()));
    state_.helpFile =
        files::NativePath(frontend.GetCorvaneName(host::name_item::templates)) + "/help/" + texts.Language();
    commands_.Item("mnuHelpWindow").setText(shown(state_.Title() + ' ' + texts.Text(helpOnWindowText)));
    commands_.Item("mnuHelpAbout").setText(shown(texts.Format(aboutText, {texts.Product("ProductName")})));
    setWindowIcon(ProductIcon());
    setWindowTitle(shown(state_.Title() + " - " + frontend.GetCorvaneName(host::name_item::workspaceName) +
                         " (" + frontend.GetCorvaneName(host::name_item::projectName) + ") "));
}

void frmMain::Load(const std::shared_ptr<frmMain>& self) {
    state_.window = self;
    state_.Frontend().Initiate(self);
    logCV_->Register([this](host::ActivityLog::Change change) { FollowLog(change); });
    {
        const Busy loading(*this);
        show();
        RestoreLayout();
        LoadContents();
        ListAddOns();
    }
    browser_.View().setFocus();
}

void frmMain::LoadContents() {
    const text::Texts& texts = *state_.texts;
    origin_->Clear();
    origin_->SetHost(state_);
    RenewOriginCaption();
    StartProgress(texts.Text(loadingText), loadingSteps);
    StartStep(texts.Text(sqlTypesText));
    state_.sqlTypes.LoadSqlTypes(state_.Database());
    FinishStep(stepLength);
    StartStep(texts.Text(tablesText));
    LoadTables();
    FinishStep(stepLength);
    StartStep(texts.Text(lastErrorsText));
    DBCheck(state_).LoadErrors();
    FinishStep(stepLength);
    ShowTable();
    // The diagram begins with its first box, whichever table is selected.
    const std::vector<std::string> boxes = diagram_.View().BoxKeys();
    if (!boxes.empty()) diagram_.View().BringIntoView(boxes.front());
    FinishProgress();
}

// A host without that icon shows none.
void frmMain::LoadSchemaIcon() {
    RunIgnoringErrors([this] {
        host::Frontend& frontend = state_.Frontend();
        const std::string file = frontend.GetCorvaneName(host::name_item::icons) + "\\Icons\\" +
                                 frontend.RepositoryOf()->EntityIcon("DBSCHEMA");
        browser_.Model().UseSchemaIcon(QString::fromStdString(files::NativePath(file)));
    });
}

void frmMain::LoadTables() {
    LoadSchemaIcon();
    RefreshBrowser();
    browser_.SelectFirst();
    browser_.FitColumns();
    const bool wasEmpty = diagram_.View().BoxCount() == 0;
    ImportTables();
    if (wasEmpty && diagram_.View().BoxCount() > 0) diagram_.AutoPlace();
}

// Options that cannot be read are said and count as not set.
bool frmMain::IsImportWanted() {
    try {
        return ImportAtStart(state_.Frontend());
    } catch (const Error& error) {
        Tell(state_, error.what(), host::Icon::Exclamation);
        return true;
    }
}

void frmMain::ImportTables() {
    modImportDBSchema repository(state_);
    if (!repository.HasRepository() || !IsImportWanted()) return;
    const ImportOutcome outcome = repository.SyncDBSchema();
    Note(state_, importActivity, {}, ResultOf(*state_.texts, outcome));
}

}  // namespace tessel
