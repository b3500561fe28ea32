#include <QApplication>
#include <QLayout>
#include <QLineEdit>

#include "platform/files/file_service.h"
#include "schema/action.h"
#include "schema/activity.h"
#include "ui/controls/connect.h"
#include "ui/controls/help_window.h"
#include "ui/dialogs/about_box.h"
#include "ui/dialogs/options_dialog.h"
#include "ui/main/frm_main.h"
#include "ui/rules/help_contexts.h"
#include "ui/rules/messages.h"
#include "ui/rules/project_options.h"
#include "verify/db_check.h"

namespace tessel {

namespace {

constexpr int deleteSchemaText = 2061;
constexpr int verificationActivity = 2080;
constexpr QSize optionsSize(6120, 5355);  // twips

}  // namespace

void frmMain::ConnectCommands() {
    ConnectViewCommands();
    commands_.On({"mnuVerifyAll", "mnuGeneralVerifyAll", "tbVerify"}, [this] { VerifyAll(); });
    commands_.On({"mnuFileDelete"}, [this] { DeleteSchema(); });
    commands_.On({"mnuFileExit"}, [this] { close(); });
    commands_.On({"mnuViewOptions", "tbOptions"}, [this] { EditOptions(); });
    commands_.On({"tbExecute"}, [this] { ShowExecuteMenu(); });
    commands_.On({"mnuHelpTopics"}, [this] { ShowHelpFinder(state_, this); });
    commands_.On({"mnuHelpWindow"}, [this] { ShowHelp(state_, this, help_context::window); });
    commands_.On({"mnuHelpAbout"}, [this] { ShowAbout(state_, this); });
    Connect(&executeMenu_, &ExecuteMenu::Chosen, this, &frmMain::Execute);
}

// A label that is being edited gets its text before the verification reads it, not in the middle of it.
void frmMain::FinishEdit() {
    QWidget* focus = focusWidget();
    if (!qobject_cast<QLineEdit*>(focus)) return;
    focus->clearFocus();
    QApplication::processEvents();
}

void frmMain::VerifyAll() {
    FinishEdit();
    DBCheck check(state_);
    try {
        check.VerifySchema(true);
    } catch (...) {
        FinishProgress();
        throw;
    }
    Note(state_, verificationActivity, {}, check.TitleFor(check.StoredErrors().size()));
    splitter_->SetPaneVisible("Errors", true);
    splitter_->MakeActive("Errors");
}

void frmMain::DeleteSchema() {
    const auto answer = state_.questions->Show({.text = state_.texts->Format(deleteSchemaText, {"\r\n"}),
                                                .title = state_.Title(),
                                                .icon = host::Icon::Warning,
                                                .buttons = host::Buttons::YesNo});
    if (answer != host::Answer::Yes) return;
    state_.workspace.reset();
    state_.database.reset();
    RunIgnoringErrors([&] { files::DeleteFolder(state_.schemaFolder); });
    close();
}

void frmMain::EditOptions() {
    try {
        (void)EditProjectOptions(state_, this, optionCase, optionsSize);
    } catch (const Error& error) {
        Tell(state_, error.what(), host::Icon::Critical);
    }
}

void frmMain::FollowLog(host::ActivityLog::Change change) {
    change == host::ActivityLog::Change::Written ? log_->Refresh() : DisplayLog();
}

void frmMain::FloatLog() {
    if (logCV_->IsVisible() && !logCV_->IsDocked()) {
        if (!logWindow_) logWindow_ = std::make_unique<LogWindow>(*logCV_, *state_.texts, this);
        logWindow_->Show(*log_);
    } else if (logWindow_) {
        logPlace_->layout()->addWidget(log_);
        log_->show();
        logWindow_.reset();
    }
}

}  // namespace tessel
