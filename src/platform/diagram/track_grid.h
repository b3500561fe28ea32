#pragma once

#include <cstdint>
#include <vector>

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// The points, gridPitch apart, along which lines run, and what is there already.
class TrackGrid {
  public:
    enum Direction { Across, Down };

    // Covers the area, in units. One that is too large for a grid is not usable.
    explicit TrackGrid(const Rect& area);
    [[nodiscard]] bool IsUsable() const { return columns_ > 0; }

    [[nodiscard]] int Columns() const { return columns_; }
    [[nodiscard]] int Rows() const { return rows_; }
    [[nodiscard]] int Count() const { return columns_ * rows_; }
    [[nodiscard]] int Index(int column, int row) const { return row * columns_ + column; }

    [[nodiscard]] int ColumnFrom(double x) const;  // the first at or right of it
    [[nodiscard]] int RowFrom(double y) const;
    [[nodiscard]] double X(int column) const { return left_ + column * gridPitch; }
    [[nodiscard]] double Y(int row) const { return top_ + row * gridPitch; }
    [[nodiscard]] bool Has(int column, int row) const {
        return column >= 0 && row >= 0 && column < columns_ && row < rows_;
    }

    // No line may run through the rectangle or along its border.
    void Block(const Rect& rect);
    [[nodiscard]] bool IsBlocked(int index) const { return ground_[std::size_t(index)] == Ground::Blocked; }
    [[nodiscard]] bool IsBeside(int index) const {  // next to what is blocked
        return ground_[std::size_t(index)] == Ground::Beside;
    }

    // Enters a line along the axes, of a group that is not 0, and takes it out again.
    void Enter(const std::vector<Point>& line, std::int32_t group);
    void TakeOut(const std::vector<Point>& line);
    // The group of the line that runs through the point in this direction; 0 for none.
    [[nodiscard]] std::int32_t GroupAt(int index, Direction direction) const {
        return groups_[std::size_t(index) * 2 + std::size_t(direction)];
    }

  private:
    enum class Ground : std::uint8_t { Free, Beside, Blocked };
    void Cover(const Rect& rect, double air, Ground ground);

    template <typename Change>
    void ForEachPassage(const std::vector<Point>& line, const Change& change);

    double left_;
    double top_;
    int columns_ = 0;
    int rows_ = 0;
    std::vector<Ground> ground_;
    // Of each point and direction.
    std::vector<std::int32_t> groups_;  // of the line that came last
    std::vector<std::uint8_t> lines_;   // how many there are
};

}  // namespace tessel::diagram
