#pragma once

#include <string>

namespace tessel {

// Puts something in the place of each standard stream that is closed, so that what is printed never gets into
// the file that is opened next. It still counts as lost.
void OccupyClosedStreams();

// Hands over what was printed on the standard output. Throws ErrorKind::File when any of it was lost;
// `remark` follows the reason.
void FinishOutput(const std::string& remark = {});

// Prints the line on the standard output. Its control characters become blanks, for names and types of a
// database may hold anything.
void PrintLine(const std::string& line);

// Prints the line on the error output. What is lost there is lost: nobody is left to be told.
void PrintAside(const std::string& line);

// Likewise, with the program's name in front and blanks as above.
void Complain(const std::string& text);

}  // namespace tessel
