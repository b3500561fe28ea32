#pragma once

#include <istream>
#include <ostream>

#include "runner/call_server.h"

namespace tessel {

// Reads a call a line from `input` to its end and answers each with one line on `output` before the next is
// read. A failed call is answered with its error, and the next one follows. Empty lines are passed over.
// Throws ErrorKind::File when the calls cannot be read to their end or the answers not written.
void ServeCalls(CallServer server, std::istream& input, std::ostream& output);

}  // namespace tessel
