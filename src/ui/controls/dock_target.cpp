#include "ui/controls/dock_target.h"

#include <algorithm>
#include <array>

namespace tessel {

namespace {

constexpr int hostZone = 12;       // pixels
constexpr double paneZone = 0.25;  // of the pane's width or height

struct Nearness {
    PaneEdge edge;
    double distance;
};

// The nearest edge; a distance is the one in pixels divided by the unit of its direction.
Nearness Nearest(QPoint position, const QRect& place, double unitX, double unitY) {
    const std::array distances{Nearness{PaneEdge::Left, (position.x() - place.left()) / unitX},
                               Nearness{PaneEdge::Right, (place.right() - position.x()) / unitX},
                               Nearness{PaneEdge::Above, (position.y() - place.top()) / unitY},
                               Nearness{PaneEdge::Below, (place.bottom() - position.y()) / unitY}};
    return *std::min_element(
        distances.begin(), distances.end(),
        [](const Nearness& one, const Nearness& other) { return one.distance < other.distance; });
}

QRect PartAt(const QRect& place, PaneEdge edge, double share) {
    const int width = qRound(place.width() * share);
    const int height = qRound(place.height() * share);
    switch (edge) {
        case PaneEdge::Left:
            return {place.left(), place.top(), width, place.height()};
        case PaneEdge::Right:
            return {place.right() + 1 - width, place.top(), width, place.height()};
        case PaneEdge::Above:
            return {place.left(), place.top(), place.width(), height};
        case PaneEdge::Below:
            return {place.left(), place.bottom() + 1 - height, place.width(), height};
    }
    return {};
}

}  // namespace

std::optional<DockTarget> FindDockTarget(QPoint position, const QRect& host,
                                         const QHash<QString, QRect>& panes) {
    if (!host.contains(position)) return std::nullopt;
    const Nearness atHost = Nearest(position, host, 1, 1);
    if (atHost.distance < hostZone)
        return DockTarget{std::nullopt, atHost.edge, PartAt(host, atHost.edge, shareOfHost)};
    for (auto pane = panes.begin(); pane != panes.end(); ++pane) {
        const QRect& place = pane.value();
        if (!place.contains(position)) continue;
        const Nearness atPane = Nearest(position, place, place.width(), place.height());
        if (atPane.distance >= paneZone) return DockTarget{pane.key(), std::nullopt, place};
        return DockTarget{pane.key(), atPane.edge, PartAt(place, atPane.edge, shareOfPane)};
    }
    return std::nullopt;
}

}  // namespace tessel
