#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files/descriptor.h"
#include "runner/line_buffer.h"

namespace tessel {

// A program that runs beside the editor in a process group of its own, its standard streams in the editor's
// hands. Nothing here waits for it longer than asked. What still runs of the group when the program has ended
// by itself, or in the end, is killed.
class ToolProcess {
  public:
    enum class Event {
        Line,      // one line of its output
        Overlong,  // a line of more than `longestLine` bytes; nothing more can be read
        Ended,     // it has ended, and all that it wrote was read
        TimeUp,
    };
    static constexpr std::size_t longestLine = 16 * 1024 * 1024;
    static constexpr std::size_t keptComplaints = 16 * 1024;

    // Starts the program at the path `command[0]` in `folder`. Throws ErrorKind::Component when it cannot be
    // started.
    ToolProcess(const std::vector<std::string>& command, const std::string& folder);
    ~ToolProcess();
    ToolProcess(const ToolProcess&) = delete;
    ToolProcess& operator=(const ToolProcess&) = delete;

    // What happens next, within `patience`. Meanwhile what was sent is handed over as the tool takes it.
    [[nodiscard]] Event Next(std::chrono::milliseconds patience, std::string& line);

    // Sends a line to its standard input; the lines that it never reads are lost.
    void Send(std::string_view line);
    // How many bytes it has been sent and not taken yet.
    [[nodiscard]] std::size_t Untaken() const { return unsent_.size() - sent_; }

    // Ends it with all that it started in its process group.
    void Kill();

    // Once it has ended: the signal that ended it, or 0, and its exit code.
    [[nodiscard]] int Signal() const;
    [[nodiscard]] int ExitCode() const;

    // The end of what it wrote to its error output, as UTF-8.
    [[nodiscard]] std::string Complaints() const;

  private:
    struct Pipe {
        Pipe() : Pipe(Ends()) {}
        explicit Pipe(std::pair<int, int> ends) : readEnd(ends.first), writeEnd(ends.second) {}
        static std::pair<int, int> Ends();  // throws ErrorKind::Component
        files::Descriptor readEnd;
        files::Descriptor writeEnd;
    };

    void Exchange(std::chrono::milliseconds patience);
    void Write();
    [[nodiscard]] bool ReadOutput();
    void ReadComplaints();
    void ReadTheRest();
    [[nodiscard]] bool NoticeEnd();

    pid_t process_ = 0;
    bool hasEnded_ = false;
    int status_ = 0;
    Pipe input_;
    Pipe output_;
    Pipe complaints_;
    std::string unsent_;
    std::size_t sent_ = 0;  // bytes of `unsent_` that were taken
    LineBuffer lines_;
    std::string complaintsText_;
};

}  // namespace tessel
