#pragma once

// Widths in twips, and what the lists add to those of their texts.
namespace tessel {

inline constexpr int twipsPerPixel = 15;
inline constexpr int iconAndMargin = 450;  // twips beside the widest text of a first column

}  // namespace tessel
