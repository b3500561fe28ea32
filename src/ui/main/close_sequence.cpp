#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>

#include "ui/main/frm_main.h"
#include "verify/db_check.h"

namespace tessel {

void frmMain::closeEvent(QCloseEvent* event) {
    CancelEdit();
    if (!isEnabled()) return event->ignore();
    event->accept();
    FinishSchema();
    StoreLayout();
    ReleasePanes();
    ReleaseHost();
}

// A label that is being edited keeps its old text.
void frmMain::CancelEdit() {
    QWidget* focus = focusWidget();
    if (!focus) return;
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(focus, &escape);
}

// What can no longer be read or written is said and does not keep the window open.
void frmMain::FinishSchema() {
    if (!state_.database) return;
    try {
        DBCheck(state_).VerifySchema(false);
        diagram_.Save();
    } catch (const Error& error) {
        FinishProgress();
        state_.questions->Show({.text = error.what(), .title = state_.Title(), .icon = host::Icon::Critical});
    }
}

void frmMain::ReleasePanes() {
    splitter_->ReleasePanes();
    diagram_.View().Clear();
    origin_->Release();
    logCV_->Register(nullptr);
    delete log_;
    logWindow_.reset();
    logCV_.reset();
}

void frmMain::ReleaseHost() {
    state_.frontend->Terminate();
    state_.workspace.reset();
    state_.database.reset();
    state_.project.reset();
    state_.schemaObject.reset();
    state_.originSource = {};
    state_.frontend.reset();
}

}  // namespace tessel
