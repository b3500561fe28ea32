#pragma once

#include <QRectF>
#include <vector>

// How a drawing is spread over sheets of paper.
namespace tessel {

struct Sheet {
    QRectF part;    // of the drawing, in units
    QRectF target;  // in points, in the area that may be printed on, from its top left corner on
};

inline constexpr int smallestPercent = 10;

// The whole drawing in the middle of one sheet, at 100 percent at most.
[[nodiscard]] Sheet FitSheet(const QRectF& drawing, const QSizeF& area);

// The drawing at this scale, row by row, on as many sheets as it takes.
[[nodiscard]] std::vector<Sheet> Tiles(const QRectF& drawing, const QSizeF& area, int percent);

// The largest scale at which the tiles can still be looked through; at least `smallestPercent`.
[[nodiscard]] int LargestPercent(const QRectF& drawing, const QSizeF& area);

}  // namespace tessel
