#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace tessel {

// Whether the check holds in a process of its own.
inline bool HoldsInChild(const std::function<bool()>& check) {
    const auto child = fork();
    if (child == 0) _exit(check() ? 0 : 1);
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// From here on this process can write no file beyond `fileSize` bytes, as on a full disk.
inline void FillDisk(std::size_t fileSize) {
    const rlimit limit{fileSize, fileSize};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace tessel
