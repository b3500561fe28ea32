#include "ui/rules/connecting_lines.h"

namespace tessel {

namespace {

constexpr int stubLength = 120;
constexpr int lineOffset = 135;  // below the top of its row
constexpr int arrowOffset = 60;
constexpr int borders = 60;

// The row above the first one is the header's.
int RowTop(const ListPlace& list, int row) { return list.top + (row - list.firstVisible + 1) * rowPitch; }

bool IsInView(const ListPlace& list, int row) {
    const int visibleRows = (list.height - borders) / rowPitch - 1;
    return row >= list.firstVisible && row < list.firstVisible + visibleRows;
}

ConnectingLine LineOf(const RowLink& link, const ListPlace& left, const ListPlace& right, int arrowWidth) {
    const LinePoint start{left.left + left.width, RowTop(left, link.row) + lineOffset};
    const LinePoint bend{start.x + stubLength, start.y};
    ConnectingLine line;
    if (IsInView(left, link.row)) line.stub = Line{start, bend};
    if (link.partner == 0) return line;
    const int arrowLeft = right.left - arrowWidth;
    const int top = RowTop(right, link.partner);
    line.segment = Line{bend, {arrowLeft, top + lineOffset}};
    line.arrow = LinePoint{arrowLeft, top + arrowOffset};
    return line;
}

}  // namespace

std::vector<ConnectingLine> ConnectingLines(const ListPlace& left, const ListPlace& right, int arrowWidth,
                                            const std::vector<RowLink>& links) {
    std::vector<ConnectingLine> lines;
    lines.reserve(links.size());
    for (const RowLink& link : links) lines.push_back(LineOf(link, left, right, arrowWidth));
    return lines;
}

}  // namespace tessel
