#include "runner/tool_process.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "platform/text/utf8.h"
#include "tessel/error.h"

namespace tessel {

namespace {

using std::chrono::milliseconds;

constexpr std::size_t blockSize = 65536;
constexpr std::size_t mostInAPipe = 1024 * 1024;
constexpr milliseconds endingSoon(5);

[[noreturn]] void Refuse(const std::string& what, int cause) {
    throw Error(ErrorKind::Component, fmt::format("{}: {}.", what, std::strerror(cause)));
}

void SetNonBlocking(const files::Descriptor& end) {
    fcntl(end.Number(), F_SETFL, fcntl(end.Number(), F_GETFL) | O_NONBLOCK);
}

// What is told to the system when a program is started.
class Spawning {
  public:
    explicit Spawning(const std::string& folder) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
        posix_spawnattr_init(&attributes_);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        posix_spawnattr_setpgroup(&attributes_, 0);
        posix_spawnattr_setflags(&attributes_,
                                 POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~Spawning() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    void Connect(const files::Descriptor& end, int number) {
        posix_spawn_file_actions_adddup2(&actions_, end.Number(), number);
    }

    // 0, or what hinders it.
    [[nodiscard]] int Start(const std::vector<std::string>& command, pid_t& process) {
        posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
        std::vector<char*> arguments;
        for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        return posix_spawn(&process, arguments[0], &actions_, &attributes_, arguments.data(), environ);
    }

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

// Keeps the signal SIGPIPE, which a write to a tool that is gone raises, from this process.
class PipeSignalsHeld {
  public:
    PipeSignalsHeld() {
        sigemptyset(&pipe_);
        sigaddset(&pipe_, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
    }
    ~PipeSignalsHeld() {
        const timespec atOnce{};
        if (isRaised) sigtimedwait(&pipe_, nullptr, &atOnce);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    PipeSignalsHeld(const PipeSignalsHeld&) = delete;
    PipeSignalsHeld& operator=(const PipeSignalsHeld&) = delete;

    bool isRaised = false;

  private:
    sigset_t pipe_{};
    sigset_t before_{};
};

// Reads once. Nothing while nothing is there; an empty text at the end.
std::optional<std::string> ReadBlock(const files::Descriptor& from) {
    std::string block(blockSize, '\0');
    const ssize_t count = read(from.Number(), block.data(), block.size());
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return std::nullopt;
    block.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return block;
}

}  // namespace

std::pair<int, int> ToolProcess::Pipe::Ends() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) Refuse("The tool cannot be given its input and output", errno);
    return {ends[0], ends[1]};
}

ToolProcess::ToolProcess(const std::vector<std::string>& command, const std::string& folder) {
    Spawning spawning(folder);
    spawning.Connect(input_.readEnd, STDIN_FILENO);
    spawning.Connect(output_.writeEnd, STDOUT_FILENO);
    spawning.Connect(complaints_.writeEnd, STDERR_FILENO);
    const int fault = spawning.Start(command, process_);
    if (fault != 0)
        Refuse(fmt::format("The program {} cannot be started in the folder {}", command.front(), folder),
               fault);
    input_.readEnd.Close();
    output_.writeEnd.Close();
    complaints_.writeEnd.Close();
    SetNonBlocking(input_.writeEnd);
    SetNonBlocking(output_.readEnd);
    SetNonBlocking(complaints_.readEnd);
}

ToolProcess::~ToolProcess() { Kill(); }

ToolProcess::Event ToolProcess::Next(milliseconds patience, std::string& line) {
    if (!hasEnded_) Exchange(lines_.HasLine() ? milliseconds(0) : patience);
    if (lines_.TakeLine(line)) return line.size() > longestLine ? Event::Overlong : Event::Line;
    if (lines_.Size() > longestLine) return Event::Overlong;
    if (!hasEnded_ && NoticeEnd()) {
        ReadTheRest();
        if (lines_.TakeLine(line)) return Event::Line;
    }
    if (!hasEnded_) return Event::TimeUp;
    return lines_.TakeRest(line) ? Event::Line : Event::Ended;
}

void ToolProcess::Send(std::string_view line) {
    if (!input_.writeEnd.IsOpen()) return;
    unsent_.erase(0, std::exchange(sent_, 0));
    unsent_.append(line);
    unsent_ += '\n';
}

void ToolProcess::Exchange(milliseconds patience) {
    const bool isFull = lines_.HasLine();  // it is read as fast as its lines are taken
    std::array<pollfd, 3> ends{{{Untaken() > 0 ? input_.writeEnd.Number() : -1, POLLOUT, 0},
                                {isFull ? -1 : output_.readEnd.Number(), POLLIN, 0},
                                {complaints_.readEnd.Number(), POLLIN, 0}}};
    if (!output_.readEnd.IsOpen()) patience = std::min(patience, endingSoon);
    if (poll(ends.data(), ends.size(), static_cast<int>(patience.count())) <= 0) return;
    if (ends[0].revents != 0) Write();
    if (ends[1].revents != 0) (void)ReadOutput();
    if (ends[2].revents != 0) ReadComplaints();
}

void ToolProcess::Write() {
    PipeSignalsHeld held;
    const ssize_t count = write(input_.writeEnd.Number(), unsent_.data() + sent_, Untaken());
    if (count >= 0) {
        sent_ += static_cast<std::size_t>(count);
    } else if (errno != EAGAIN && errno != EINTR) {
        held.isRaised = errno == EPIPE;
        input_.writeEnd.Close();
        unsent_.clear();
        sent_ = 0;
    }
}

// False when nothing is there to be read.
bool ToolProcess::ReadOutput() {
    const auto block = ReadBlock(output_.readEnd);
    if (block) lines_.Append(*block);
    if (block && block->empty()) output_.readEnd.Close();
    return block && !block->empty();
}

void ToolProcess::ReadComplaints() {
    const auto block = ReadBlock(complaints_.readEnd);
    if (!block) return;
    if (block->empty()) complaints_.readEnd.Close();
    complaintsText_ += *block;
    if (complaintsText_.size() > keptComplaints)
        complaintsText_.erase(0, complaintsText_.size() - keptComplaints);
}

// Others may hold its output open, and go on writing: what it wrote itself is in the pipe by now.
void ToolProcess::ReadTheRest() {
    for (std::size_t count = 0; count <= mostInAPipe / blockSize; ++count)
        if (!output_.readEnd.IsOpen() || !ReadOutput()) break;
    for (std::size_t count = 0; count <= mostInAPipe / blockSize; ++count)
        if (complaints_.readEnd.IsOpen()) ReadComplaints();
}

bool ToolProcess::NoticeEnd() {
    siginfo_t news{};
    const bool isThere = waitid(P_PID, id_t(process_), &news, WEXITED | WNOHANG | WNOWAIT) == 0;
    if (isThere && news.si_pid == 0) return false;
    // What it started ends with it. As long as it is not waited for nobody else gets its number.
    if (isThere) kill(-process_, SIGKILL);
    const pid_t ended = waitpid(process_, &status_, WNOHANG);
    // Where children are not waited for nobody knows how it ended, so it did not end well.
    if (ended < 0 && errno == ECHILD) status_ = W_EXITCODE(EXIT_FAILURE, 0);
    hasEnded_ = ended != 0 && (ended > 0 || errno == ECHILD);
    return hasEnded_;
}

void ToolProcess::Kill() {
    if (hasEnded_) return;
    kill(-process_, SIGKILL);
    while (waitpid(process_, &status_, 0) < 0 && errno == EINTR) continue;
    hasEnded_ = true;
}

int ToolProcess::Signal() const { return WIFSIGNALED(status_) ? WTERMSIG(status_) : 0; }

int ToolProcess::ExitCode() const { return WIFEXITED(status_) ? WEXITSTATUS(status_) : 0; }

std::string ToolProcess::Complaints() const { return text::Encode(text::Decode(complaintsText_)); }

}  // namespace tessel
