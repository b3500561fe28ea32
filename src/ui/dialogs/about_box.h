#pragma once

#include <QWidget>

#include "schema/component_state.h"

namespace tessel {

// Shows the dialog frmAbout: what the program is, its version, and the libraries that it stands on.
void ShowAbout(ComponentState& state, QWidget* owner);

}  // namespace tessel
