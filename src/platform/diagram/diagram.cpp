#include "platform/diagram/diagram.h"

#include <algorithm>
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
};

}  // namespace

double FittingWidth(const std::string& caption) {
    constexpr double border = 6;
    double width = border;
    for (const char32_t character : text::Decode(caption)) width += IsDoubleWidth(character) ? 4 : 2;
    return width;
}

Rect Bounds(const Diagram& diagram) {
    if (diagram.boxes.empty()) return {};
    Extent extent;
    for (const auto& [key, caption, comment, rect] : diagram.boxes) {
        extent.Include({rect.x, rect.y});
        extent.Include({rect.x + rect.width, rect.y + rect.height});
    }
    for (const auto& link : diagram.links)
        for (const Point& point : link.points) extent.Include(point);
    return {extent.left, extent.top, extent.right - extent.left, extent.bottom - extent.top};
}

}  // namespace tessel::diagram
