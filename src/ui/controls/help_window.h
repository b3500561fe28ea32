#pragma once

#include "schema/component_state.h"

class QWidget;

namespace tessel {

// Both show the help window frmHelp, one for each window that it was asked from, which takes input also while
// `owner` belongs to a modal dialog. The pages are those of the folder state.helpFile, for example help/ja,
// and for what is missing there, of help/en beside it. When there are none, a message box says so.

// At the table of contents.
void ShowHelpFinder(ComponentState& state, QWidget* owner);

// At the page of this context number; at the table of contents when no page has it.
void ShowHelp(ComponentState& state, QWidget* owner, int context);

}  // namespace tessel
