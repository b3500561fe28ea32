#pragma once

#include <cstdint>

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// What every drawing of a diagram has in common.
inline constexpr double pixelsOfUnit = 4;  // at the size that it is made for
inline constexpr double captionSize = 3.25;
inline constexpr double cornerRadius = 1;
inline constexpr double headLength = 2.5;
inline constexpr double headWidth = 2;
inline constexpr double margin = 3;  // around everything

// Colours are red, green and blue, a byte each from the highest on.
struct Look {
    std::uint32_t paper;
    std::uint32_t ink;
    std::uint32_t line;
};
inline constexpr Look lightLook{0xFFFFFF, 0x1D242C, 0x6B7988};

// The colour of a box as its border and, paler, as what the caption stands on: calm enough beside the paper
// that the ink stays legible.
[[nodiscard]] std::uint32_t BorderColour(std::uint32_t colour);
[[nodiscard]] std::uint32_t FillColour(std::uint32_t colour, const Look& look);

}  // namespace tessel::diagram
