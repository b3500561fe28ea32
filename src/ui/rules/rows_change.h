#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

namespace tessel {

// A change of a list's rows that is about to happen. Rows count from 0, as they stand before the change.
struct RowsChange {
    enum class Kind { Insert, Remove, Move, Renew, Reset };
    Kind kind;
    std::size_t row = 0;  // of Insert: the row that the new one goes before; of Reset: unused
    std::size_t to = 0;   // of Move: the row that the moved one goes before

    bool operator==(const RowsChange&) const = default;
};

// Is told of each change and makes it by calling `apply` exactly once.
using RowsWatcher = std::function<void(const RowsChange&, const std::function<void()>& apply)>;

// Puts the row before the row `to`.
template <typename Row>
void MoveRow(std::vector<Row>& rows, std::size_t from, std::size_t to) {
    const auto row = rows.begin() + static_cast<std::ptrdiff_t>(from);
    const auto place = rows.begin() + static_cast<std::ptrdiff_t>(to);
    from < to ? std::rotate(row, row + 1, place) : std::rotate(place, row, row + 1);
}

}  // namespace tessel
