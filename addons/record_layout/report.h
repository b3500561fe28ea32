#pragma once

#include <string>
#include <vector>

#include "layout.h"

namespace tessel::layout {

// A line for each remark, "FILE:LINE: what", and one that counts those that are not kept.
[[nodiscard]] std::vector<std::string> ReportLines(const Layout& layout, Language language);

[[nodiscard]] std::string JoinLines(const std::vector<std::string>& lines);

}  // namespace tessel::layout
