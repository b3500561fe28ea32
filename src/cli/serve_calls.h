#pragma once

#include <istream>
#include <ostream>

#include "engine/queued_questions.h"
#include "tessel/vntws.h"

namespace tessel {

// Reads a call a line from `input` to its end and answers each with one line on `output` before the next is
// read. A failed call is answered with its error, and the next one follows. Empty lines are passed over.
// `questions` must be the ones that the workspace asks. Throws ErrorKind::File when the calls cannot be read
// to their end or the answers not written.
void ServeCalls(VNTWS& workspace, QueuedQuestions& questions, std::istream& input, std::ostream& output);

}  // namespace tessel
