#include "platform/diagram/look.h"

#include <cmath>

namespace tessel::diagram {

namespace {

// So much of one colour, 0 to 1, over another.
std::uint32_t Mixed(std::uint32_t over, std::uint32_t under, double part) {
    std::uint32_t mixed = 0;
    for (const int shift : {16, 8, 0}) {
        const auto channel = [shift](std::uint32_t colour) { return double(colour >> shift & 0xFF); };
        const double value = channel(over) * part + channel(under) * (1 - part);
        mixed |= static_cast<std::uint32_t>(std::lround(value)) << shift;
    }
    return mixed;
}

}  // namespace

std::uint32_t BorderColour(std::uint32_t colour) {
    constexpr std::uint32_t slate = 0x5F7088;
    return Mixed(colour, slate, 0.4);
}

std::uint32_t FillColour(std::uint32_t colour, const Look& look) {
    return Mixed(BorderColour(colour), look.paper, 0.12);
}

}  // namespace tessel::diagram
