#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "remarks.h"

namespace tessel::layout {

// Fixed: columns 1 to 6 and from 73 on are the programmer's own, column 7 an indicator. Auto: as the lines
// look.
enum class Format { Auto, Fixed, Free };

// The words of a file: without comments, continued lines joined, each line ended by '\n'.
struct SourceText {
    std::string text;
    int file = 0;
    std::vector<std::pair<std::size_t, int>>
        lines;  // where each piece of a line begins in the text, and which

    [[nodiscard]] Place At(std::size_t offset) const;
};

// Reads a file's content; what is not valid UTF-8 counts as Latin-1. Wide characters take two columns, tabs
// reach to the next eighth column.
[[nodiscard]] SourceText ReadSource(std::string_view content, int file, Format format, Remarks& remarks);

// Whether this can be a text at all.
[[nodiscard]] bool IsText(std::string_view content);

}  // namespace tessel::layout
