#include "platform/files/left_behind.h"

#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <string>
#include <string_view>

namespace tessel::files {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view newFile = ".tessel-";
constexpr std::string_view deletedFolder = ".tessel-deleted-";

fs::path NameOf(const fs::path& folder, std::string_view prefix, int count) {
    return folder / (std::string(prefix) + std::to_string(getpid()) + "-" + std::to_string(count));
}

// The process that a name PREFIX + PID + "-" + COUNT was given by; 0 when it is no such name.
pid_t ProcessIn(const std::string& name, std::string_view prefix) {
    pid_t process = 0;
    int count = 0;
    if (!name.starts_with(prefix)) return 0;
    const char* const end = name.data() + name.size();
    const auto number = std::from_chars(name.data() + prefix.size(), end, process);
    if (number.ec != std::errc() || process <= 0 || number.ptr == end || *number.ptr != '-') return 0;
    const auto rest = std::from_chars(number.ptr + 1, end, count);
    return rest.ec == std::errc() && rest.ptr == end && count >= 0 ? process : 0;
}

bool IsGone(pid_t process) { return process > 0 && kill(process, 0) != 0 && errno == ESRCH; }

bool IsLeftFolder(const fs::directory_entry& entry, const std::string& name) {
    std::error_code fault;
    return IsGone(ProcessIn(name, deletedFolder)) &&
           entry.symlink_status(fault).type() == fs::file_type::directory;
}

bool IsLeftFile(const fs::directory_entry& entry, const std::string& name) {
    if (!IsGone(ProcessIn(name, newFile))) return false;
    std::error_code fault;
    const auto written = entry.last_write_time(fault);
    return !fault && written < fs::file_time_type::clock::now() - std::chrono::hours(24);
}

}  // namespace

fs::path NameOfNewFile(const fs::path& folder, int count) { return NameOf(folder, newFile, count); }

fs::path NameOfDeletedFolder(const fs::path& folder, int count) {
    return NameOf(folder, deletedFolder, count);
}

void RemoveLeftBehind(const fs::path& folder) {
    std::error_code fault;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, fault), end; !fault && entry != end;
         entry.increment(fault)) {
        const auto name = entry->path().filename().string();
        std::error_code passedOver;
        if (IsLeftFolder(*entry, name)) fs::remove_all(entry->path(), passedOver);
        if (IsLeftFile(*entry, name)) unlink(entry->path().c_str());
    }
}

}  // namespace tessel::files
