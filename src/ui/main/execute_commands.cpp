#include "platform/files/file_service.h"
#include "runner/run_add_on.h"
#include "schema/action.h"
#include "ui/main/frm_main.h"
#include "ui/main/tool_watch.h"
#include "ui/rules/messages.h"

namespace tessel {

// Options that cannot be read are said and list nothing.
void frmMain::ListAddOns() {
    try {
        executeMenu_.List(ReadAddOnMenu(state_.Frontend().GlobalOptions(), *state_.texts));
    } catch (const std::exception& error) {
        Tell(state_, error.what(), host::Icon::Exclamation);
    }
}

void frmMain::ShowExecuteMenu() {
    const QWidget* button = coolBar_->Toolbar().widgetForAction(&commands_.Item("tbExecute"));
    const int left = coolBar_->Toolbar().x() + button->x();
    commands_.Popup("mnuExecute", coolBar_->mapToGlobal(QPoint(left, coolBar_->height())));
}

void frmMain::Execute(const AddOnEntry& entry, const QString& title) {
    if (!isEnabled()) return;
    FinishEdit();
    // When the diagram is drawn anew in the middle of the run, it is drawn as this file has it.
    RunIgnoringErrors([this] { diagram_.Save(); });
    const Busy running(*this);
    {
        const SuspendedDrawing drawing(diagram_.View());
        ToolWatch watch(state_, *this, title);
        Value result;
        (void)RunAddOn(
            state_, entry,
            {.folder = files::NativePath(state_.Frontend().GetCorvaneName(host::name_item::workspaceFolder)),
             .watch = watch},
            result);
    }
    FollowDatabase();
}

void frmMain::SelectTable(const std::string& key) {
    if (browser_.Select(key)) return;
    FollowDatabase();
    (void)browser_.Select(key);
}

// A tool may have changed anything. What the user arranged stays.
void frmMain::FollowDatabase() {
    const std::string reference = CVRL();
    const std::string selected = browser_.Reload();
    diagram_.FollowDatabase();
    browser_.SelectAgain(selected);
    SetCVRL(reference);
}

}  // namespace tessel
