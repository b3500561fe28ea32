#pragma once

#include <QString>
#include <optional>

#include "ui/controls/pane_layout.h"

namespace tessel {

// What the user does to a pane, with the mouse or in its menu.
class PaneCommands {
  public:
    virtual ~PaneCommands() = default;

    virtual void ToggleMaximised(const QString& name) = 0;
    virtual void Close(const QString& name) = 0;
    // To an edge of the target pane, or of the whole host when there is none.
    virtual void Dock(const QString& name, PaneEdge edge, const std::optional<QString>& target) = 0;
    virtual void Swap(const QString& name, const QString& other) = 0;
    virtual void Grow(const QString& name, PaneDirection direction, double change) = 0;
};

}  // namespace tessel
