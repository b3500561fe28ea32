#include "report.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace tessel::layout {

namespace {

std::string FileName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

// False when that fails, with errno saying why.
bool WriteNewFile(const std::string& path, const std::string& content) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    const bool isWritten = std::fwrite(content.data(), 1, content.size(), file) == content.size() &&
                           std::fflush(file) == 0 && fsync(fileno(file)) == 0;
    return std::fclose(file) == 0 && isWritten;
}

void ReplaceFile(const std::string& path, const std::string& content) {
    const std::string written = path + ".new-" + std::to_string(getpid());
    if (WriteNewFile(written, content) && std::rename(written.c_str(), path.c_str()) == 0) return;
    const int cause = errno;
    unlink(written.c_str());
    throw Complaint(Text::FileNotWritten, {path, std::generic_category().message(cause)});
}

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

void WriteReport(const std::string& path, const std::vector<std::string>& lines) {
    if (path.empty()) return;
    if (lines.empty()) {
        std::error_code failure;
        std::filesystem::remove(path, failure);
    } else {
        ReplaceFile(path, JoinLines(lines) + "\n");
    }
}

}  // namespace tessel::layout
