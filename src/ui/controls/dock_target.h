#pragma once

#include <QHash>
#include <QRect>
#include <QString>
#include <optional>

#include "ui/controls/pane_layout.h"

namespace tessel {

// The shares of the room that a docked pane gets.
inline constexpr double shareOfPane = 0.5;
inline constexpr double shareOfHost = 0.25;

// Where a dragged pane would go.
struct DockTarget {
    std::optional<QString> pane;   // none: the whole host
    std::optional<PaneEdge> edge;  // none: the two panes swap
    QRect place;                   // what the dragged pane would cover
};

// The target at a position: the host's edge, if it is near, else the near edge or the middle of the pane that
// is there; nothing elsewhere. `panes` are the others on screen, in the host's coordinates.
[[nodiscard]] std::optional<DockTarget> FindDockTarget(QPoint position, const QRect& host,
                                                       const QHash<QString, QRect>& panes);

}  // namespace tessel
