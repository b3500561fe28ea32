#pragma once

#include <string>

#include "platform/files/descriptor.h"

namespace tessel {

// The standard input and output that this program was started with, as lines. From its making on, the
// library's own standard output goes to the error output and its standard input is empty, so that nothing it
// prints stands among the lines. There is one in a program.
class StandardStreams {
  public:
    StandardStreams();

    // Ends the process as soon as nobody can write to its input any more.
    void EndWithTheEditor() const;

    // Both end the process, too, when there is nobody at the other end.
    void WriteLine(const std::string& line) const;
    [[nodiscard]] std::string ReadLine();

    // Writes the line that ends the talk: the editor may go away from then on.
    void WriteLastLine(const std::string& line) const;

  private:
    files::Descriptor input_;
    files::Descriptor output_;
    std::string read_;  // of lines not asked for yet
};

}  // namespace tessel
