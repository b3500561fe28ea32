#pragma once

#include <string>
#include <string_view>
#include <system_error>

// Whole files, by paths of the system. What is returned says why that failed; it is none when all went well.
namespace tessel::tool {

// Takes the file's content, of a larger one the first `most` bytes. What is no file, such as a folder, fails.
[[nodiscard]] std::error_code ReadFile(const std::string& path, std::string& content,
                                       std::size_t most = std::string::npos);

// Gives the file this content, and makes its folder where that alone is missing. A link stays one: the file
// that it leads to is replaced, and keeps its rights, or is made. A crash or a full disk leaves the old
// content or the whole new one, on the disk before this returns where the folder can be synced. A failure
// leaves the old one, but for that of the syncing itself, which comes when the new one is in its place.
[[nodiscard]] std::error_code ReplaceFile(const std::string& path, std::string_view content);

}  // namespace tessel::tool
