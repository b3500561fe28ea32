#include "platform/diagram/diagram.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/text/utf8.h"

namespace tessel::diagram {

namespace {

// Hangul, kana, ideographs and full-width forms, as terminals and fixed-width fonts count them.
bool IsDoubleWidth(char32_t character) {
    static constexpr std::pair<char32_t, char32_t> ranges[] = {
        {0x1100, 0x115F}, {0x2E80, 0xA4CF}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},
        {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x3FFFD},
    };
    return std::ranges::any_of(ranges, [character](const auto& range) {
        return character >= range.first && character <= range.second;
    });
}

double WidthOf(char32_t character) {
    if (IsDoubleWidth(character)) return 4;
    const bool isCapital = character >= U'A' && character <= U'Z';
    return isCapital ? 2.3 : 2;
}

struct Extent {
    double left = std::numeric_limits<double>::max();
    double top = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    double bottom = std::numeric_limits<double>::lowest();

    void Include(Point point) {
        left = std::min(left, point.x);
        top = std::min(top, point.y);
        right = std::max(right, point.x);
        bottom = std::max(bottom, point.y);
    }
    [[nodiscard]] Rect Around() const {
        return left > right ? Rect{} : Rect{left, top, right - left, bottom - top};
    }
};

}  // namespace

double FittingWidth(const std::string& caption) {
    constexpr double border = 6;
    double width = border;
    for (const char32_t character : text::Decode(caption)) width += WidthOf(character);
    return std::ceil(width / gridPitch) * gridPitch;
}

Rect Outline(const Box& box) {
    return {box.rect.x, box.rect.y, std::max(box.rect.width, FittingWidth(box.caption)),
            std::max(box.rect.height, fittingHeight)};
}

bool Overlap(const Rect& one, const Rect& other) {
    return one.x < other.Right() && other.x < one.Right() && one.y < other.Bottom() && other.y < one.Bottom();
}

Rect Bounds(const Diagram& diagram) {
    Extent extent;
    for (const Box& box : diagram.boxes) {
        const Rect outline = Outline(box);
        extent.Include({outline.x, outline.y});
        extent.Include({outline.Right(), outline.Bottom()});
    }
    for (const auto& link : diagram.links)
        for (const Point& point : link.points) extent.Include(point);
    return extent.Around();
}

Rect Bounds(const std::vector<Point>& points) {
    Extent extent;
    for (const Point& point : points) extent.Include(point);
    return extent.Around();
}

}  // namespace tessel::diagram
