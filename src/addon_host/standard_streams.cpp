#include "addon_host/standard_streams.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <thread>

#include "tessel/error.h"

namespace tessel {

namespace {

constexpr int firstFree = 3;  // above the standard descriptors

int KeptAside(int descriptor) { return fcntl(descriptor, F_DUPFD_CLOEXEC, firstFree); }

std::atomic<int> codeWithoutEditor = EXIT_FAILURE;

// What the add-on would do without the editor is of use to nobody.
[[noreturn]] void EndAtOnce() { _exit(codeWithoutEditor); }

}  // namespace

StandardStreams::StandardStreams() : input_(KeptAside(STDIN_FILENO)), output_(KeptAside(STDOUT_FILENO)) {
    const files::Descriptor nothing(open("/dev/null", O_RDONLY | O_CLOEXEC));
    if (!input_.IsOpen() || !output_.IsOpen() || dup2(nothing.Number(), STDIN_FILENO) < 0 ||
        dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
        throw Error(ErrorKind::Io, "The standard input and output cannot be set up.");
}

void StandardStreams::EndWithTheEditor() const {
    std::thread([input = input_.Number()] {
        pollfd watched{.fd = input, .events = 0, .revents = 0};
        while (poll(&watched, 1, -1) < 0 && errno == EINTR) {
        }
        if (watched.revents != 0) EndAtOnce();
    }).detach();
}

void StandardStreams::WriteLine(const std::string& line) const {
    if (!output_.WriteAll(line + '\n')) EndAtOnce();
}

void StandardStreams::WriteLastLine(const std::string& line) const {
    codeWithoutEditor = EXIT_SUCCESS;
    if (!output_.WriteAll(line + '\n')) _exit(EXIT_FAILURE);
}

std::string StandardStreams::ReadLine() {
    std::array<char, 65536> piece{};
    std::size_t end = 0;
    while ((end = read_.find('\n', end)) == std::string::npos) {
        end = read_.size();
        const ssize_t count = read(input_.Number(), piece.data(), piece.size());
        if (count == 0 || (count < 0 && errno != EINTR)) EndAtOnce();
        if (count > 0) read_.append(piece.data(), static_cast<std::size_t>(count));
    }
    std::string line = read_.substr(0, end);
    read_.erase(0, end + 1);
    return line;
}

}  // namespace tessel
