#include "ui/rules/list_widths.h"

#include <algorithm>

#include "ui/rules/twips.h"

namespace tessel {

namespace {

constexpr int narrowest = 1000;
constexpr int border = 90;

}  // namespace

int FitFirstColumn(const std::vector<std::string>& texts, int listWidth, const MeasureText& measure) {
    int widest = narrowest;
    for (const auto& text : texts) widest = std::max(widest, measure(text));
    return std::max(widest + iconAndMargin, listWidth - border);
}

}  // namespace tessel
