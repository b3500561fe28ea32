#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <string_view>

#include "addon_host/add_on_library.h"
#include "addon_host/standard_streams.h"

namespace {

using tessel::Json;

constexpr int failureCode = 2;

// What the library throws may be of any type.
Json LastLine(const std::function<Json()>& run) {
    const auto failure = [](const char* message) { return Json{{"error", {{"message", message}}}}; };
    try {
        return {{"result", run()}};
    } catch (const std::exception& error) {
        return failure(error.what());
    } catch (...) {
        return failure("The add-on failed without saying why.");
    }
}

// The last line is not written yet.
std::atomic<bool> isRunning = false;

void RefuseEarlyExit() {
    if (!isRunning) return;
    std::fputs("The add-on ended its program before it came to its end.\n", stderr);
    _exit(failureCode);
}

int Run(const char* library, const char* progId, const char* parameter) {
    tessel::StandardStreams streams;
    streams.EndWithTheEditor();
    const auto editor = tessel::Editor::Make([&](const std::string& line) {
        streams.WriteLine(line);
        return streams.ReadLine();
    });
    isRunning = true;
    std::atexit(RefuseEarlyExit);
    const Json last = LastLine([&] {
        static const tessel::AddOnLibrary loaded(library);  // until the end: a result may be code of it
        return loaded.Run(progId, editor, parameter);
    });
    streams.WriteLastLine(tessel::LineOf(last));
    isRunning = false;
    return 0;
}

int ListClasses(const char* library) {
    const tessel::StandardStreams streams;
    const tessel::AddOnLibrary loaded(library);
    for (const auto& progId : loaded.Classes()) streams.WriteLine(progId);
    return 0;
}

int RunProgram(int argc, char** argv) {
    if (argc == 3 && argv[1] == std::string_view("--classes")) return ListClasses(argv[2]);
    if (argc == 4) return Run(argv[1], argv[2], argv[3]);
    std::fputs(
        "usage: tessel-addon-host LIBRARY PROGID PARAM\n"
        "       tessel-addon-host --classes LIBRARY\n",
        stderr);
    return failureCode;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return RunProgram(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessel-addon-host: %s\n", error.what());
        return failureCode;
    }
}
