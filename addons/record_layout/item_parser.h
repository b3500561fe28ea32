#pragma once

#include <vector>

#include "items.h"
#include "tokens.h"

namespace tessel::layout {

// The descriptions in their order, none of them with children yet; conditions stand with their items. What is
// no description is left out with a remark.
[[nodiscard]] std::vector<Item> ParseItems(const Tokens& tokens, Remarks& remarks);

}  // namespace tessel::layout
