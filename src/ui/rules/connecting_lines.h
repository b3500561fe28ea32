#pragma once

#include <optional>
#include <vector>

namespace tessel {

// The lines between the two lists of the foreign-key dialog. All measures are in twips for rows of this
// pitch; lists whose rows have another height are measured in 255ths of it.
inline constexpr int rowPitch = 255;

// Where a list stands, and the first row that it shows, counted from 1 (1 when it shows none).
struct ListPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int firstVisible = 1;

    bool operator==(const ListPlace&) const = default;
};

// A linked row of the left list. Rows count from 1.
struct RowLink {
    int row = 0;
    int partner = 0;  // in the right list; 0 when it is not there

    bool operator==(const RowLink&) const = default;
};

struct LinePoint {
    int x = 0;
    int y = 0;

    bool operator==(const LinePoint&) const = default;
};

struct Line {
    LinePoint from;
    LinePoint to;

    bool operator==(const Line&) const = default;
};

struct ConnectingLine {
    std::optional<Line> stub;        // at the left list; only while the row is in view
    std::optional<Line> segment;     // from the end of the stub to the arrow; only with a partner
    std::optional<LinePoint> arrow;  // the left top of its picture; only with a partner

    bool operator==(const ConnectingLine&) const = default;
};

// One for each link, in the same order. A segment and an arrow may lie above or below the lists, when their
// rows are out of view.
[[nodiscard]] std::vector<ConnectingLine> ConnectingLines(const ListPlace& left, const ListPlace& right,
                                                          int arrowWidth, const std::vector<RowLink>& links);

}  // namespace tessel
