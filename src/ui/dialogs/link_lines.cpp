#include "ui/dialogs/link_lines.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/dialogs/column_list.h"

namespace tessel {

namespace {

// The picture of the arrow head, in units of a 255th of the row height.
constexpr int arrowWidth = 240;
constexpr double arrowHalfHeight = 75;
// What a list has above and below its rows, in these units, when lines are measured: its header is as high as
// a row.
constexpr int listBorder = 60;
constexpr int narrowestGap = 6;  // in rows

QPainterPath ArrowHead(const QPointF& tip, double length, double halfHeight) {
    QPainterPath head(tip);
    head.lineTo(tip.x() - length, tip.y() - halfHeight);
    head.lineTo(tip.x() - length, tip.y() + halfHeight);
    head.closeSubpath();
    return head;
}

}  // namespace

LinkLines::LinkLines(const ColumnList& left, const ColumnList& right) : left_(left), right_(right) {
    setObjectName("lnLink");
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Ignored);
}

QSize LinkLines::minimumSizeHint() const { return {narrowestGap * fontMetrics().height(), 0}; }

void LinkLines::SetLinks(std::vector<RowLink> links) {
    links_ = std::move(links);
    Follow();
}

void LinkLines::Follow() {
    if (Lines() != drawn_) update();
}

std::vector<ConnectingLine> LinkLines::Lines() const {
    if (left_.RowHeight() == 0) return {};
    return ConnectingLines(PlaceOf(left_), PlaceOf(right_), arrowWidth, links_);
}

ListPlace LinkLines::PlaceOf(const ColumnList& list) const {
    const QRect rows = RowsOf(list);
    return {.left = Units(list.x() - x()),
            .top = Units(rows.top()) - rowPitch,
            .width = Units(list.width()),
            .height = rowPitch + Units(rows.height()) + listBorder,
            .firstVisible = static_cast<int>(list.FirstVisibleRow()) + 1};
}

QRect LinkLines::RowsArea() const {
    const QRect rows = RowsOf(left_) | RowsOf(right_);
    return {0, rows.top(), width(), rows.height()};
}

// In this widget's coordinates.
QRect LinkLines::RowsOf(const ColumnList& list) const {
    return list.viewport()->geometry().translated(list.pos() - pos());
}

int LinkLines::Units(int pixels) const { return pixels * rowPitch / left_.RowHeight(); }

QLineF LinkLines::Pixels(const Line& line) const {
    const double unit = double(left_.RowHeight()) / rowPitch;
    return {line.from.x * unit, line.from.y * unit, line.to.x * unit, line.to.y * unit};
}

void LinkLines::paintEvent(QPaintEvent*) {
    drawn_ = Lines();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(RowsArea());
    painter.setPen(palette().color(QPalette::WindowText));
    const double headHeight = arrowHalfHeight * left_.RowHeight() / rowPitch;
    for (const auto& [stub, segment, arrow] : drawn_) {
        if (stub) painter.drawLine(Pixels(*stub));
        if (segment) painter.drawLine(Pixels(*segment));
        if (!arrow) continue;
        const Line shaft{segment->to, {arrow->x + arrowWidth, segment->to.y}};
        painter.drawLine(Pixels(shaft));
        painter.fillPath(ArrowHead(Pixels(shaft).p2(), 2 * headHeight, headHeight), painter.pen().color());
    }
}

}  // namespace tessel
