#pragma once

#include <string>
#include <string_view>

namespace tessel {

// Bytes as they come in, given out as lines.
class LineBuffer {
  public:
    void Append(std::string_view bytes) { bytes_.append(bytes); }

    // Whether a whole line is there.
    [[nodiscard]] bool HasLine() { return FindEnd() != std::string::npos; }
    // Moves the next line, without its end, into `line`; false when none is whole yet.
    bool TakeLine(std::string& line);
    // Moves what came after the last end of a line into `line`; false when nothing did.
    bool TakeRest(std::string& line);

    [[nodiscard]] std::size_t Size() const { return bytes_.size() - start_; }

  private:
    std::size_t FindEnd();

    std::string bytes_;
    std::size_t start_ = 0;     // of the next line
    std::size_t searched_ = 0;  // no line ends between `start_` and here
};

}  // namespace tessel
