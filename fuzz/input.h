#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tessel/error.h"

namespace tessel::fuzz {

// An input that is taken apart from front to back. Past its end bytes are 0 and texts empty.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(size == 0 ? std::string_view()
                          : std::string_view(reinterpret_cast<const char*>(data), size)) {}

    [[nodiscard]] bool IsEmpty() const { return rest_.empty(); }
    [[nodiscard]] std::string Rest() const { return std::string(rest_); }

    char Byte() {
        if (rest_.empty()) return '\0';
        const char byte = rest_.front();
        rest_.remove_prefix(1);
        return byte;
    }
    // Without its line feed.
    std::string Line() {
        const auto length = std::min(rest_.find('\n'), rest_.size());
        std::string line(rest_.substr(0, length));
        rest_.remove_prefix(std::min(length + 1, rest_.size()));
        return line;
    }

  private:
    std::string_view rest_;
};

// A finding, when it does not hold.
inline void Require(bool holds, const std::string& what) {
    if (!holds) throw std::logic_error(what);
}

// What the Error says that ended `act`; empty when none did. Whatever else it throws is a finding.
template <typename Act>
std::string FaultOf(const Act& act) {
    try {
        act();
        return {};
    } catch (const Error& error) {
        return error.what();
    }
}

template <typename Act>
bool Succeeds(const Act& act) {
    return FaultOf(act).empty();
}

}  // namespace tessel::fuzz
