#include "cli/output.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>

#include "platform/text/one_line.h"
#include "tessel/error.h"

namespace tessel {

void OccupyClosedStreams() {
    int place = STDIN_FILENO;
    while (place >= STDIN_FILENO && place <= STDERR_FILENO) place = open("/dev/null", O_RDONLY);
    if (place >= 0) close(place);
}

void FinishOutput(const std::string& remark) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return;
    throw Error(ErrorKind::File, "The output cannot be written." + remark);
}

void PrintLine(const std::string& line) { fmt::print("{}\n", text::OnOneLine(line)); }

void PrintAside(const std::string& line) { (void)std::fputs((line + "\n").c_str(), stderr); }

void Complain(const std::string& text) { PrintAside("tessel: " + text::OnOneLine(text)); }

}  // namespace tessel
