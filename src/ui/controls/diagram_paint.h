#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <set>
#include <string>

#include "platform/diagram/content.h"
#include "platform/diagram/look.h"

class QPainter;
class QPalette;

namespace tessel {

// Painting works in the pixels of the zoom 100; the diagram is in units.
[[nodiscard]] QRectF ToPixels(const diagram::Rect& rect);
[[nodiscard]] QPointF ToPixels(diagram::Point point);
[[nodiscard]] diagram::Rect ToUnits(const QRectF& rect);
[[nodiscard]] diagram::Point ToUnits(QPointF point);

struct DiagramColours {
    explicit DiagramColours(const diagram::Look& paperAndInk);
    explicit DiagramColours(const QPalette& palette);

    diagram::Look look;
    QColor highlight;  // of what is selected
    QColor mark;       // of what was found
};

// What stands out of a diagram on the screen.
struct DiagramMarks {
    std::string current{};  // a box
    std::string currentLink{};
    std::string target{};  // the box that a new link would lead to
    std::set<std::string> selected{};
    std::set<std::string> found{};
};

// Paints what lies in the area, in pixels of the zoom 100. The smaller the painter's scale, the less of the
// detail is painted.
void PaintDiagram(QPainter& painter, const diagram::Content& content, const QRectF& area,
                  const DiagramColours& colours, const DiagramMarks& marks, const QFont& font);

}  // namespace tessel
