#include "ui/controls/help_window.h"

#include <QApplication>

#include "tessel/error.h"
#include "ui/controls/frm_help.h"
#include "ui/rules/help_contexts.h"

namespace tessel {

namespace {

constexpr int noPagesText = 2178;

// The help window of that window, made when it has none. A child of a modal dialog takes input beside it.
frmHelp& HelpOf(ComponentState& state, QWidget* window) {
    if (window)
        if (auto* help = window->findChild<frmHelp*>(frmHelp::name, Qt::FindDirectChildrenOnly)) return *help;
    return *new frmHelp(state, HelpContents(state.helpFile), window);
}

}  // namespace

void ShowHelpFinder(ComponentState& state, QWidget* owner) { ShowHelp(state, owner, help_context::none); }

void ShowHelp(ComponentState& state, QWidget* owner, int context) {
    try {
        HelpOf(state, owner ? owner->window() : QApplication::activeWindow()).ShowPage(context);
    } catch (const Error& error) {
        state.questions->Show({.text = state.texts->Format(noPagesText, {state.helpFile}),
                               .title = state.Title(),
                               .icon = host::Icon::Information,
                               .detail = error.what()});
    }
}

}  // namespace tessel
