#pragma once

#include <QIcon>
#include <QString>

namespace tessel {

// The drawing in an SVG file or resource as an icon: sharp at every size and device pixel ratio, its line
// colour that of the palette's text at the moment of painting, greyed when disabled and light when selected.
// In the file #000000 is the line colour and #2f7de1 the accent; every other colour stays. A file that cannot
// be read gives an empty icon.
[[nodiscard]] QIcon SvgIcon(const QString& path);

}  // namespace tessel
