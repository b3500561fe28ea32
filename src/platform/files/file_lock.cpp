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

bool Hold(const Descriptor& file, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (flock(file.Number(), LOCK_EX | LOCK_NB) != 0) {
        const bool isBusy = errno == EWOULDBLOCK || errno == EINTR;
        if (!isBusy || std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience) : file_(OpenLockFile(path)) {
    if (Hold(file_, patience)) return;
    if (errno != EWOULDBLOCK) ThrowWriteError("lock file", path, "locked", errno);
    throw Error(ErrorKind::Busy, "Another program holds " + path +
                                     " and does not let it go; close that program and try again.");
}

}  // namespace tessel::files
