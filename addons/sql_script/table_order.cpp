#include "sql_script/table_order.h"

#include <utility>

namespace tessel::sql_script {

std::vector<std::size_t> DependencyOrder(const std::vector<std::vector<std::size_t>>& references) {
    std::vector<std::size_t> order;
    std::vector<bool> isSeen(references.size());
    // A stack of our own: a chain of references may be as long as the schema.
    std::vector<std::pair<std::size_t, std::size_t>> open;  // each with its next reference
    const auto enter = [&](std::size_t place) {
        if (isSeen[place]) return;
        isSeen[place] = true;
        open.emplace_back(place, 0);
    };
    for (std::size_t first = 0; first < references.size(); ++first) {
        enter(first);
        while (!open.empty()) {
            auto& [place, next] = open.back();
            if (next < references[place].size()) {
                enter(references[place][next++]);
            } else {
                order.push_back(place);
                open.pop_back();
            }
        }
    }
    return order;
}

}  // namespace tessel::sql_script
