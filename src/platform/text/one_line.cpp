#include "platform/text/one_line.h"

#include <algorithm>

namespace tessel::text {
namespace {

constexpr unsigned char Byte(char character) { return static_cast<unsigned char>(character); }

}  // namespace

std::string OnOneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char character) { return Byte(character) < 0x20 || character == 0x7f; }, ' ');
    // U+0080 to U+009F
    for (auto at = text.find('\xc2'); at != std::string::npos; at = text.find('\xc2', at + 1)) {
        const bool isControl =
            at + 1 < text.size() && Byte(text[at + 1]) >= 0x80 && Byte(text[at + 1]) < 0xa0;
        if (isControl) text.replace(at, 2, 1, ' ');
    }
    return text;
}

}  // namespace tessel::text
