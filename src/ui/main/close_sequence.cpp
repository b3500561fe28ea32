#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>

#include "ui/main/frm_main.h"
#include "ui/rules/messages.h"
#include "ui/rules/rescue.h"
#include "verify/db_check.h"

namespace tessel {

void frmMain::closeEvent(QCloseEvent* event) {
    CancelEdit();
    if (!isEnabled()) return event->ignore();
    event->accept();
    FinishSchema();
    TryToClose([this] { StoreLayout(); });
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

void frmMain::FinishSchema() {
    if (!state_.database) return;
    OfferCopy(state_);
    TryToClose([this] { DBCheck(state_).VerifySchema(false); });
    TryToClose([this] { diagram_.Save(); });
}

// What can no longer be read or written is said and does not keep the window open.
void frmMain::TryToClose(const std::function<void()>& step) {
    try {
        step();
    } catch (const std::exception& error) {
        FinishProgress();
        Tell(state_, error.what(), host::Icon::Critical);
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
    TryToClose([this] { state_.frontend->Terminate(); });
    state_.workspace.reset();
    state_.database.reset();
    state_.project.reset();
    state_.schemaObject.reset();
    state_.originSource = {};
    state_.frontend.reset();
}

}  // namespace tessel
