#include "report.h"

namespace tessel::layout {

namespace {

std::string FileName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

}  // namespace

std::vector<std::string> ReportLines(const Layout& layout, Language language) {
    const std::vector<Remark> remarks = layout.remarks.Sorted();
    std::vector<std::string> lines;
    for (const auto& [place, text, details] : remarks)
        lines.push_back(FileName(layout.files[static_cast<std::size_t>(place.file)]) + ":" +
                        std::to_string(place.line) + ": " + Phrase(language, text, details));
    const std::size_t rest = layout.remarks.Count() - remarks.size();
    if (rest > 0) lines.push_back(Phrase(language, Text::MoreRemarks, {std::to_string(rest)}));
    return lines;
}

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string joined;
    for (const auto& line : lines) joined += (joined.empty() ? "" : "\n") + line;
    return joined;
}

}  // namespace tessel::layout
