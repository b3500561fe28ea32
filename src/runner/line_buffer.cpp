#include "runner/line_buffer.h"

#include <algorithm>
#include <utility>

namespace tessel {

std::size_t LineBuffer::FindEnd() {
    const std::size_t end = bytes_.find('\n', std::max(start_, searched_));
    searched_ = end == std::string::npos ? bytes_.size() : end;
    return end;
}

bool LineBuffer::TakeLine(std::string& line) {
    const std::size_t end = FindEnd();
    if (end == std::string::npos) {
        // Only a part of a line is left to move, so that a flood of short ones stays cheap.
        bytes_.erase(0, std::exchange(start_, 0));
        searched_ = bytes_.size();
        return false;
    }
    line = bytes_.substr(start_, end - start_);
    start_ = end + 1;
    return true;
}

bool LineBuffer::TakeRest(std::string& line) {
    line = bytes_.substr(start_);
    bytes_.clear();
    start_ = searched_ = 0;
    return !line.empty();
}

}  // namespace tessel
