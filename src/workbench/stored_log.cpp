#include "workbench/stored_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

#include "platform/files/descriptor.h"
#include "platform/files/file_lock.h"
#include "platform/files/file_service.h"
#include "platform/text/one_line.h"
#include "tessel/error.h"

namespace tessel::workbench {
namespace {

using text::OnOneLine;

std::string Line(const host::Activity& activity) {
    return FormatIso(activity.when) + '\t' + activity.action + '\t' + activity.result + '\n';
}

std::optional<host::Activity> ParseLine(std::string_view line) {
    const auto first = line.find('\t');
    const auto second = line.find('\t', first == std::string_view::npos ? first : first + 1);
    if (second == std::string_view::npos) return std::nullopt;
    const auto when = ParseIso(line.substr(0, first));
    if (!when) return std::nullopt;
    return host::Activity{*when, OnOneLine(std::string(line.substr(first + 1, second - first - 1))),
                          OnOneLine(std::string(line.substr(second + 1)))};
}

// Where the last `count` lines begin.
std::size_t LastLines(std::string_view content, std::size_t count) {
    std::size_t begin = content.size();
    while (begin > 0 && count-- > 0) {
        const auto feed = begin < 2 ? std::string_view::npos : content.rfind('\n', begin - 2);
        begin = feed == std::string_view::npos ? 0 : feed + 1;
    }
    return begin;
}

// The log, made when it is not there, and held against other programs while it is open; a file that is not
// open when that cannot be soon: somebody is waiting for the work to go on.
files::Descriptor OpenHeld(const std::string& path) {
    constexpr std::chrono::milliseconds patience(500);
    for (;;) {
        files::Descriptor file(open(path.c_str(), O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
        struct stat status {};
        if (!file.IsOpen() || !files::Hold(file, patience) || fstat(file.Number(), &status) != 0)
            return files::Descriptor(-1);
        if (status.st_nlink > 0) return file;  // else it was cut meanwhile, and another is in its place
    }
}

// A crash may have left the last line without its end.
bool IsInALine(int file) {
    const auto size = lseek(file, 0, SEEK_END);
    char last = '\n';
    return size > 0 && pread(file, &last, 1, size - 1) == 1 && last != '\n';
}

// Keeps whole lines of the last half of what a log may hold.
void Cut(const std::string& path) {
    const std::string content = files::ReadFile(path);
    const auto feed = content.find('\n', content.size() - StoredLog::mostBytes / 2 - 1);
    files::ReplaceFile(path, std::string_view(content).substr(feed + 1));
}

}  // namespace

StoredLog::StoredLog(std::string path) : path_(std::move(path)) {
    try {
        Read();
    } catch (const Error&) {
        // A file that is not there, or cannot be read, holds no activity.
    }
}

void StoredLog::Read() {
    const std::string content = files::ReadFile(path_);
    std::string_view rest = std::string_view(content).substr(LastLines(content, mostRead));
    while (!rest.empty()) {
        const auto length = std::min(rest.find('\n'), rest.size());
        if (auto activity = ParseLine(rest.substr(0, length))) activities_.push_back(std::move(*activity));
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
}

void StoredLog::Write(const std::string& action, const std::string& result) {
    activities_.push_back({Now(), OnOneLine(action), OnOneLine(result)});
    try {
        Append(activities_.back());
    } catch (const Error&) {
        // The work goes on; the session still shows the activity.
    }
    Tell(Change::Written);
}

void StoredLog::Append(const host::Activity& activity) const {
    const auto file = OpenHeld(files::NativePath(path_));
    if (!file.IsOpen()) return;
    const std::string line = (IsInALine(file.Number()) ? "\n" : "") + Line(activity);
    struct stat status {};
    if (!file.WriteAll(line) || fstat(file.Number(), &status) != 0) return;
    if (static_cast<std::size_t>(status.st_size) > mostBytes) Cut(path_);
}

void StoredLog::SetState(bool& state, bool value) {
    if (std::exchange(state, value) != value) Tell(Change::State);
}

void StoredLog::Tell(Change change) const {
    if (window_) window_(change);
}

}  // namespace tessel::workbench
