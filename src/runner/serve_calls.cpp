#include "runner/serve_calls.h"

#include "tessel/error.h"

namespace tessel {

void ServeCalls(CallServer server, std::istream& input, std::ostream& output) {
    for (std::string text; output && std::getline(input, text);) {
        if (text.find_first_not_of(" \t\r") == std::string::npos) continue;
        output << LineOf(server.Answer(std::string_view(text))) << '\n' << std::flush;
    }
    if (!output) throw Error(ErrorKind::File, "The answers cannot be written; no more calls were made.");
    if (input.bad()) throw Error(ErrorKind::File, "The calls cannot be read to their end.");
}

}  // namespace tessel
