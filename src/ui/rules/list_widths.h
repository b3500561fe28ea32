#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tessel {

// The width of a text in the font of the list, in twips.
using MeasureText = std::function<int(const std::string&)>;

// The width in twips of the first column of a dialog's list, whose other columns do not count: wide enough
// for every text, and not narrower than the list.
[[nodiscard]] int FitFirstColumn(const std::vector<std::string>& texts, int listWidth,
                                 const MeasureText& measure);

}  // namespace tessel
