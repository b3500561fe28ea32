#pragma once

#include <string>

#include "platform/text/texts.h"
#include "runner/call_server.h"
#include "runner/run_add_on.h"
#include "runner/tool_process.h"

namespace tessel {

// How a tool's run ended.
struct ToolEnd {
    enum class Kind { Succeeded, Failed, Stopped };

    Kind kind = Kind::Succeeded;
    Value result{};        // of one that succeeded
    std::string reason{};  // why the others did not; a sentence for the user
};

// Makes the calls of a tool, a line each, and answers them, until it says its result or its failure, ends by
// itself, is stopped by `watch`, or breaks the rules:
//   - more than 100 lines in a row that are no calls, or one line that is too long;
//   - calls without end whose answers it does not read.
// Afterwards it runs no longer. `watch` is asked also while a call works on the database. A tool that says a
// result and then ends with an exit code other than 0, or by a signal, has failed.
[[nodiscard]] ToolEnd TalkWithTool(ToolProcess& tool, CallServer& server, db::Database& database,
                                   RunWatch& watch, const text::Texts& texts);

}  // namespace tessel
