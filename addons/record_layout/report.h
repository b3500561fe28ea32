#pragma once

#include <string>
#include <system_error>
#include <vector>

#include "layout.h"

namespace tessel::layout {

// A line for each remark, "FILE:LINE: what", and one that counts those that are not kept.
[[nodiscard]] std::vector<std::string> ReportLines(const Layout& layout, Language language);

[[nodiscard]] std::string JoinLines(const std::vector<std::string>& lines);

// Leaves the lines in the file; without lines there is no file afterwards. An empty path is none. A crash or
// a full disk leaves the old file or the whole new one. Returns why it failed, if it did.
[[nodiscard]] std::error_code WriteReport(const std::string& path, const std::vector<std::string>& lines);

}  // namespace tessel::layout
