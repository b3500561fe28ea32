#pragma once

#include <string>
#include <vector>

#include "items.h"

namespace tessel::layout {

// The records that the items make, each a 01 with what stands under it. Items without a 01 over them make a
// record named `fallback`; neighbouring 77s make one named like the first. Usage and sign go down from a
// group to its items; a group's own picture is left out with a remark.
[[nodiscard]] std::vector<Item> MakeRecords(std::vector<Item> items, const std::string& fallback,
                                            Remarks& remarks);

}  // namespace tessel::layout
