#include "ui/dialogs/diagram_sheets.h"

#include <algorithm>
#include <cmath>

#include "ui/dialogs/diagram_formats.h"

namespace tessel {

namespace {

constexpr int mostSheets = 400;
constexpr int largestPercent = 400;
constexpr int percentStep = 10;

double ScaleOf(int percent) { return pointsOfUnit * percent / 100; }

// A sheet for what is lost in rounding would be empty.
int SheetsFor(double length, double ofSheet) {
    constexpr double lost = 1e-6;
    return std::max(1, static_cast<int>(std::ceil(length / ofSheet - lost)));
}

QSize Grid(const QRectF& drawing, const QSizeF& sheet) {
    return {SheetsFor(drawing.width(), sheet.width()), SheetsFor(drawing.height(), sheet.height())};
}

}  // namespace

Sheet FitSheet(const QRectF& drawing, const QSizeF& area) {
    const double scale =
        std::min({pointsOfUnit, area.width() / drawing.width(), area.height() / drawing.height()});
    QRectF target({}, drawing.size() * scale);
    target.moveCenter(QRectF({}, area).center());
    return {drawing, target};
}

std::vector<Sheet> Tiles(const QRectF& drawing, const QSizeF& area, int percent) {
    const QSizeF size = area / ScaleOf(percent);
    const QSize grid = Grid(drawing, size);
    std::vector<Sheet> sheets;
    for (int row = 0; row < grid.height(); ++row) {
        for (int column = 0; column < grid.width(); ++column) {
            const QPointF corner(column * size.width(), row * size.height());
            const QRectF part = QRectF(drawing.topLeft() + corner, size) & drawing;
            sheets.push_back({part, QRectF({}, part.size() * ScaleOf(percent))});
        }
    }
    return sheets;
}

int LargestPercent(const QRectF& drawing, const QSizeF& area) {
    const auto isTooLarge = [&](int percent) {
        const QSize grid = Grid(drawing, area / ScaleOf(percent));
        return static_cast<qint64>(grid.width()) * grid.height() > mostSheets;
    };
    int percent = largestPercent;
    while (percent > smallestPercent && isTooLarge(percent)) percent -= percentStep;
    return percent;
}

}  // namespace tessel
