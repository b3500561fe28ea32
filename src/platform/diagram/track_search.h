#pragma once

#include <optional>

#include "platform/diagram/track_grid.h"

namespace tessel::diagram {

// Finds lines between boxes over a grid: short, with few corners and crossings, and on no other line. Good
// for 65,535 of them.
class TrackSearch {
  public:
    // Lines may cost `haste` times as much as the best ones, for the sake of being found sooner.
    TrackSearch(const TrackGrid& grid, float haste);

    // From border to border. Nothing when there is no way, or only one that takes too long to find. The line
    // may run on lines of its own group, which lead to the same box.
    [[nodiscard]] std::optional<std::vector<Point>> Find(const Rect& from, const Rect& to,
                                                         std::int32_t group);

  private:
    using Direction = TrackGrid::Direction;

    // A point of the grid and the direction in which the line runs through it.
    using State = std::int32_t;
    static constexpr State none = -1;

    // Where a line leaves a box: the first point of the grid in front of a side, and how much less than the
    // middle of that side it is wanted.
    struct Port {
        State state;
        float cost;
        Point border;
    };

    enum class Came : std::uint8_t { FromBox, Turning, Forwards, Backwards };

    struct Visit {
        float cost = 0;
        std::uint16_t search = 0;  // the last search that came here
        Came came = Came::FromBox;
        bool isDone = false;
    };

    struct Candidate {
        float estimate;
        State state;
    };

    [[nodiscard]] std::vector<Port> PortsOf(const Rect& rect) const;  // by ascending state
    [[nodiscard]] static const Port* PortAt(State state, const std::vector<Port>& ports);
    void AddPorts(const Rect& rect, Direction direction, std::vector<Port>& ports) const;
    void AddPort(int column, int row, Direction direction, double offMiddle, Point border,
                 std::vector<Port>& ports) const;

    void Start(const std::vector<Port>& ports, const std::vector<Port>& goals);
    [[nodiscard]] State Run(const std::vector<Port>& goals);
    void Extend(State state);
    void Step(int column, int row, Direction direction, Came came, float cost);
    void Reach(State state, Came came, float cost);
    [[nodiscard]] State Before(State state) const;  // on the way that led there
    [[nodiscard]] float PassageCost(int index, Direction direction) const;
    [[nodiscard]] float TurnCost(int index) const;
    [[nodiscard]] float LeastCost(State state) const;  // from there to the goal
    [[nodiscard]] bool IsNearGoal(State state) const;
    [[nodiscard]] std::vector<Point> LineTo(State end, const std::vector<Port>& ports,
                                            const std::vector<Port>& goals) const;

    const TrackGrid& grid_;
    float haste_;
    std::vector<Visit> visits_;
    std::vector<Candidate> open_;  // a heap
    std::uint16_t search_ = 0;
    std::int32_t group_ = 0;
    int left_ = 0;  // the rectangle around the goal, in points of the grid
    int top_ = 0;
    int right_ = 0;
    int bottom_ = 0;
};

}  // namespace tessel::diagram
