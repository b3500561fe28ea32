#include "platform/files/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <thread>

#include "platform/files/file_error.h"
#include "tessel/error.h"

namespace tessel::files {
namespace {

Descriptor OpenLockFile(const std::string& path) {
    Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666));
    if (!file.IsOpen()) ThrowWriteError("lock file", path, "opened", errno);
    return file;
}

}  // namespace

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience) : file_(OpenLockFile(path)) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (flock(file_.Number(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) ThrowWriteError("lock file", path, "locked", errno);
        if (std::chrono::steady_clock::now() >= end) {
            throw Error(ErrorKind::Busy, "Another program holds " + path +
                                             " and does not let it go; close that program and try again.");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

}  // namespace tessel::files
