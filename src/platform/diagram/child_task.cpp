#include "platform/diagram/child_task.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "platform/files/descriptor.h"

namespace tessel::diagram {

namespace {

constexpr int askEvery = 50;  // milliseconds

class Child {
  public:
    Child(pid_t process, files::Descriptor results) : process_(process), results_(std::move(results)) {}
    ~Child() {
        if (process_ == 0) return;
        kill(process_, SIGKILL);
        Wait();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // False at the end of what the child writes.
    bool Read(std::string& result) {
        std::array<char, 65536> buffer{};
        const ssize_t count = read(results_.Number(), buffer.data(), buffer.size());
        if (count < 0) return errno == EINTR;
        result.append(buffer.data(), static_cast<std::size_t>(count));
        return count > 0;
    }

    [[nodiscard]] bool HasResults() const {
        pollfd waiting{results_.Number(), POLLIN, 0};
        return poll(&waiting, 1, askEvery) > 0;
    }

    // Whether the child came to its end by itself.
    [[nodiscard]] bool Succeeded() {
        const int status = Wait();
        process_ = 0;
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

  private:
    int Wait() const {
        int status = -1;
        while (waitpid(process_, &status, 0) < 0 && errno == EINTR) continue;
        return status;
    }

    pid_t process_;
    files::Descriptor results_;
};

[[noreturn]] void Work(const std::function<std::string()>& task, const files::Descriptor& results) {
    try {
        _exit(results.WriteAll(task()) ? 0 : 1);
    } catch (...) {
        _exit(1);
    }
}

}  // namespace

std::optional<std::string> RunInChild(const std::function<std::string()>& task, const KeepOn& keepOn) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
    files::Descriptor results(ends[0]);
    files::Descriptor end(ends[1]);
    const pid_t process = fork();
    if (process == 0) {
        results.Close();
        Work(task, end);
    }
    end.Close();
    if (process < 0) return std::nullopt;
    Child child(process, std::move(results));
    std::string result;
    for (bool isWorking = true; isWorking;) {
        if (keepOn && !keepOn()) return std::nullopt;
        if (child.HasResults()) isWorking = child.Read(result);
    }
    if (!child.Succeeded()) return std::nullopt;
    return result;
}

}  // namespace tessel::diagram
