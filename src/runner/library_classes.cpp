#include "runner/library_classes.h"

#include <fmt/format.h>

#include <chrono>

#include "runner/tool_process.h"
#include "tessel/error.h"

namespace tessel {

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void Refuse(const std::string& library, const std::string& why) {
    throw Error(ErrorKind::Component,
                fmt::format("The library {} cannot be asked for its classes: {}", library, why));
}

}  // namespace

std::vector<std::string> LibraryClasses(const std::string& library, const std::string& programFolder) {
    ToolProcess host({programFolder + "/tessel-addon-host", "--classes", library}, "/");
    const auto latest = Clock::now() + std::chrono::seconds(10);
    std::vector<std::string> classes;
    std::string line;
    for (auto event = ToolProcess::Event::TimeUp; event != ToolProcess::Event::Ended;) {
        if (Clock::now() > latest) Refuse(library, "it does not answer.");
        event = host.Next(std::chrono::milliseconds(100), line);
        if (event == ToolProcess::Event::Overlong) Refuse(library, "it does not stop writing.");
        if (event == ToolProcess::Event::Line && !line.empty()) classes.push_back(line);
    }
    if (host.Signal() != 0) Refuse(library, fmt::format("it was ended by the signal {}.", host.Signal()));
    if (host.ExitCode() != 0) Refuse(library, host.Complaints());
    return classes;
}

}  // namespace tessel
