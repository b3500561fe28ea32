#pragma once

#include <filesystem>

// What a process puts beside a file or a folder for the time of its work, under names that no one else gives:
// so it can be told what a killed process left.
namespace tessel::files {

// FOLDER/.tessel-PID-COUNT: content that is to take a file's place.
[[nodiscard]] std::filesystem::path NameOfNewFile(const std::filesystem::path& folder, int count);

// FOLDER/.tessel-deleted-PID-COUNT: a folder in the middle of its deletion.
[[nodiscard]] std::filesystem::path NameOfDeletedFolder(const std::filesystem::path& folder, int count);

// Removes from the folder what processes that live no longer left there under these names: folders at once,
// files that nobody has written to for a day, for their process may run on another machine. What cannot be
// removed stays.
void RemoveLeftBehind(const std::filesystem::path& folder);

}  // namespace tessel::files
