#pragma once

#include <optional>
#include <string>
#include <vector>

#include "replacing.h"

namespace tessel::layout {

struct CopyStatement {
    std::string name;  // of the file, as it is written, without quotes
    std::vector<Replacement> replacements;
};

// Reads the words from COPY up to the period. Nothing when they make no sense.
[[nodiscard]] std::optional<CopyStatement> ReadCopyStatement(const Tokens& statement, Remarks& remarks);

}  // namespace tessel::layout
