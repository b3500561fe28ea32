#include "platform/files/descriptor.h"

#include <unistd.h>

#include <array>
#include <cerrno>

namespace tessel::files {

bool Descriptor::ReadAll(std::string& content) const {
    std::array<char, 65536> block{};
    for (;;) {
        const auto count = read(number_, block.data(), block.size());
        if (count == 0) return true;
        if (count > 0) {
            content.append(block.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
}

bool Descriptor::WriteAll(std::string_view content) const {
    while (!content.empty()) {
        const auto count = write(number_, content.data(), content.size());
        if (count >= 0) {
            content.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool Descriptor::Close() {
    const auto number = std::exchange(number_, -1);
    return number < 0 || close(number) == 0;
}

}  // namespace tessel::files
