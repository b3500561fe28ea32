#pragma once

#include <QImage>
#include <QRectF>
#include <span>
#include <string>

#include "ui/controls/diagram.h"

// The files that a diagram can be written to.
namespace tessel {

// Points on paper, of which 72 are an inch, that a unit of the diagram takes at 100 percent.
inline constexpr double pointsOfUnit = 3;

[[nodiscard]] QRectF RectWithMargin(const TDiagram& diagram);  // in units

// At most 192 pixels an inch, and fewer for a diagram that is very large. Throws ErrorKind::Host when it
// does not fit in memory.
[[nodiscard]] QImage SharpPicture(const TDiagram& diagram);

struct DiagramFormat {
    const char* suffix;  // with its dot
    int filterText;      // what the file dialog offers
    std::string (*content)(const TDiagram& diagram, const std::string& title);
};
[[nodiscard]] std::span<const DiagramFormat> DiagramFormats();

}  // namespace tessel
