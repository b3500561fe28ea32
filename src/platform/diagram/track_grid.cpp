#include "platform/diagram/track_grid.h"

#include <algorithm>
#include <cmath>

namespace tessel::diagram {

namespace {

constexpr double mostPoints = 14e6;      // a few hundred megabytes
constexpr std::uint8_t mostLines = 255;  // that are counted; more are never taken out

double Snapped(double units) { return std::floor(units / gridPitch) * gridPitch; }

}  // namespace

TrackGrid::TrackGrid(const Rect& area) : left_(Snapped(area.x)), top_(Snapped(area.y)) {
    const double columns = std::ceil((area.Right() - left_) / gridPitch) + 1;
    const double rows = std::ceil((area.Bottom() - top_) / gridPitch) + 1;
    if (columns * rows > mostPoints) return;
    columns_ = static_cast<int>(columns);
    rows_ = static_cast<int>(rows);
    ground_.resize(std::size_t(Count()));
    groups_.resize(std::size_t(Count()) * 2);
    lines_.resize(std::size_t(Count()) * 2);
}

int TrackGrid::ColumnFrom(double x) const { return static_cast<int>(std::ceil((x - left_) / gridPitch)); }
int TrackGrid::RowFrom(double y) const { return static_cast<int>(std::ceil((y - top_) / gridPitch)); }

void TrackGrid::Block(const Rect& rect) {
    constexpr double air = 0.99;  // off the grid, too, a line keeps away from a box
    Cover(rect, air + gridPitch, Ground::Beside);
    Cover(rect, air, Ground::Blocked);
}

void TrackGrid::Cover(const Rect& rect, double air, Ground ground) {
    const int left = std::max(0, ColumnFrom(rect.x - air));
    const int right = std::min(columns_, ColumnFrom(rect.Right() + air));
    const int bottom = std::min(rows_, RowFrom(rect.Bottom() + air));
    for (int row = std::max(0, RowFrom(rect.y - air)); row < bottom; ++row)
        for (int column = left; column < right; ++column) {
            Ground& here = ground_[std::size_t(Index(column, row))];
            here = std::max(here, ground);
        }
}

template <typename Change>
void TrackGrid::ForEachPassage(const std::vector<Point>& line, const Change& change) {
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Point& a = line[i - 1];
        const Point& b = line[i];
        const bool isAcross = a.y == b.y;
        if (!isAcross && a.x != b.x) continue;
        const double start = isAcross ? std::min(a.x, b.x) - left_ : std::min(a.y, b.y) - top_;
        const double end = isAcross ? std::max(a.x, b.x) - left_ : std::max(a.y, b.y) - top_;
        const int beside = int(std::lround((isAcross ? a.y - top_ : a.x - left_) / gridPitch));
        const int last = int(std::floor(end / gridPitch));
        for (int along = int(std::ceil(start / gridPitch)); along <= last; ++along) {
            const int column = isAcross ? along : beside;
            const int row = isAcross ? beside : along;
            if (Has(column, row)) change(std::size_t(Index(column, row)) * 2 + (isAcross ? Across : Down));
        }
    }
}

void TrackGrid::Enter(const std::vector<Point>& line, std::int32_t group) {
    ForEachPassage(line, [this, group](std::size_t passage) {
        groups_[passage] = group;
        if (lines_[passage] < mostLines) ++lines_[passage];
    });
}

void TrackGrid::TakeOut(const std::vector<Point>& line) {
    ForEachPassage(line, [this](std::size_t passage) {
        if (lines_[passage] < mostLines && --lines_[passage] == 0) groups_[passage] = 0;
    });
}

}  // namespace tessel::diagram
