#include "workbench/file_stamp.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/files/file_error.h"

namespace tessel::workbench {

FileStamp StampOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) files::ThrowReadError("file", path, "read", errno);
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

}  // namespace tessel::workbench
