#pragma once

#include <QString>

#include "host/questions.h"
#include "schema/component_state.h"

class QWidget;

namespace tessel {

// Lets the user choose the file of a field, starting from the one at `path`; a relative path counts from the
// workspace's folder. The full path, or nothing when the user cancelled.
[[nodiscard]] QString ChooseFile(const ComponentState& state, const host::FormField& field,
                                 const QString& path, QWidget* owner);

}  // namespace tessel
