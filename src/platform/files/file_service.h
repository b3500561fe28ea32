#pragma once

#include <memory>
#include <string>
#include <string_view>

// Files and folders by full path. A path may be written with '\' or '/' between its parts, also mixed; a part
// ".." and a NUL are refused, so that no name leads out of its folder. Failures throw ErrorKind::File (Full
// and ReadOnly where that is the cause), saying the path.
namespace tessel::files {

// The path as the system writes it.
[[nodiscard]] std::string NativePath(std::string_view path);

[[nodiscard]] bool FileExists(std::string_view path);  // a file, not a folder
[[nodiscard]] bool FolderExists(std::string_view path);

// Whatever writes here, and DeleteFolder, also takes away what interrupted programs left behind in the same
// folder.

// Makes the last folder of the path; the ones above it must be there.
void CreateFolder(std::string_view path);

// Copies a file, in place of an earlier one. A crash or a full disk leaves the old file or the whole new one.
void CopyFile(std::string_view from, std::string_view to);

// Copies a file to a path where nothing is yet; false, leaving what is there, when something is. Of several
// programs that do so at once exactly one gets true. A crash or a full disk leaves nothing or the whole file.
bool PlaceNewFile(std::string_view from, std::string_view to);

// Deletes the folder with everything in it; nothing when it is not there. A crash leaves all of it or none
// under its name.
void DeleteFolder(std::string_view path);
void RemoveFile(std::string_view path);  // nothing when it is not there

struct PathParts {
    std::string folder;     // without a separator at its end
    std::string baseName;   // without the extension
    std::string extension;  // with its dot, or empty
};
[[nodiscard]] PathParts SplitPath(std::string_view path);

[[nodiscard]] std::string ReadFile(std::string_view path);

// Gives the file this content. A crash or a full disk leaves the old content or the whole new one, on the
// disk before this returns.
void ReplaceFile(std::string_view path, std::string_view content);

// The same in two steps: new content on the disk beside the file, which takes its place in the end or is gone
// with this. So all that is likely to fail, such as a full disk, does so in the first.
class Replacement {
  public:
    Replacement(std::string_view path, std::string_view content);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    void TakePlace();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace tessel::files
