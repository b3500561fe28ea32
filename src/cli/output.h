#pragma once

#include <string>

namespace tessel {

// Puts something in the place of each standard stream that is closed, so that what is printed never gets into
// the file that is opened next. It still counts as lost.
void OccupyClosedStreams();

// Hands over what was printed on the standard output. Throws ErrorKind::File when any of it was lost;
// `remark` follows the reason.
void FinishOutput(const std::string& remark = {});

// Prints the line on the error output. What is lost there is lost: nobody is left to be told.
void PrintAside(const std::string& line);

// Likewise, with the program's name in front.
void Complain(const std::string& text);

}  // namespace tessel
