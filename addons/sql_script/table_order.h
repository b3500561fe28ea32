#pragma once

#include <cstddef>
#include <vector>

namespace tessel::sql_script {

// The places 0 to references.size() - 1 in an order in which each comes after those that it refers to, except
// where that would go round in a circle; else in their own order. `references` are in the order of
// preference.
[[nodiscard]] std::vector<std::size_t> DependencyOrder(
    const std::vector<std::vector<std::size_t>>& references);

}  // namespace tessel::sql_script
