#include "platform/diagram/track_search.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace tessel::diagram {

namespace {

// What a line avoids, in steps of the grid that it would rather go around.
constexpr float cornerCost = 4;
constexpr float crossingCost = 6;
constexpr float joiningCost = 0.4F;  // a step on a line to the same box
constexpr float overlapCost = 40;    // a step on any other line
constexpr float touchingCost = 15;   // a corner on a line that crosses
constexpr float besideCost = 0.3F;   // a step close to a box
constexpr float cornerBesideCost = 3;
constexpr float offMiddleCost = 0.5F;
constexpr float takenPortCost = 12;

// How far off the middle of the sides the ends of a box count; lines better run from side to side.
constexpr double offSide = 10;

constexpr std::size_t mostVisits = 150000;

}  // namespace

TrackSearch::TrackSearch(const TrackGrid& grid, float haste)
    : grid_(grid), haste_(haste), visits_(std::size_t(grid.Count()) * 2) {}

std::optional<std::vector<Point>> TrackSearch::Find(const Rect& from, const Rect& to, std::int32_t group) {
    group_ = group;
    const auto ports = PortsOf(from);
    const auto goals = PortsOf(to);
    if (ports.empty() || goals.empty()) return std::nullopt;
    Start(ports, goals);
    const State end = Run(goals);
    if (end == none) return std::nullopt;
    return LineTo(end, ports, goals);
}

std::vector<TrackSearch::Port> TrackSearch::PortsOf(const Rect& rect) const {
    std::vector<Port> ports;
    AddPorts(rect, TrackGrid::Across, ports);
    AddPorts(rect, TrackGrid::Down, ports);
    std::ranges::stable_sort(ports, {}, &Port::state);
    return ports;
}

const TrackSearch::Port* TrackSearch::PortAt(State state, const std::vector<Port>& ports) {
    const auto port = std::ranges::lower_bound(ports, state, {}, &Port::state);
    return port != ports.end() && port->state == state ? &*port : nullptr;
}

void TrackSearch::AddPorts(const Rect& rect, Direction direction, std::vector<Port>& ports) const {
    constexpr double corner = 1;  // no line leaves so near at a corner
    if (direction == TrackGrid::Across) {
        const int before = grid_.ColumnFrom(rect.x - 0.99) - 1;
        const int behind = grid_.ColumnFrom(rect.Right() + 0.99);
        for (int row = grid_.RowFrom(rect.y + corner); grid_.Y(row) <= rect.Bottom() - corner; ++row) {
            const double off = std::abs(grid_.Y(row) - rect.Center().y);
            AddPort(before, row, direction, off, {rect.x, grid_.Y(row)}, ports);
            AddPort(behind, row, direction, off, {rect.Right(), grid_.Y(row)}, ports);
        }
        return;
    }
    const int above = grid_.RowFrom(rect.y - 0.99) - 1;
    const int below = grid_.RowFrom(rect.Bottom() + 0.99);
    for (int column = grid_.ColumnFrom(rect.x + corner); grid_.X(column) <= rect.Right() - corner; ++column) {
        const double off = std::abs(grid_.X(column) - rect.Center().x) / 2 + offSide;
        AddPort(column, above, direction, off, {grid_.X(column), rect.y}, ports);
        AddPort(column, below, direction, off, {grid_.X(column), rect.Bottom()}, ports);
    }
}

void TrackSearch::AddPort(int column, int row, Direction direction, double offMiddle, Point border,
                          std::vector<Port>& ports) const {
    if (!grid_.Has(column, row) || grid_.IsBlocked(grid_.Index(column, row))) return;
    const int index = grid_.Index(column, row);
    const std::int32_t other = grid_.GroupAt(index, direction);
    const float taken = other == 0 ? 0 : other == group_ ? joiningCost : takenPortCost;
    ports.push_back({index * 2 + direction, float(offMiddle) * offMiddleCost + taken, border});
}

void TrackSearch::Start(const std::vector<Port>& ports, const std::vector<Port>& goals) {
    ++search_;
    open_.clear();
    left_ = top_ = grid_.Count();
    right_ = bottom_ = 0;
    for (const Port& goal : goals) {
        const int column = goal.state / 2 % grid_.Columns();
        const int row = goal.state / 2 / grid_.Columns();
        left_ = std::min(left_, column);
        right_ = std::max(right_, column);
        top_ = std::min(top_, row);
        bottom_ = std::max(bottom_, row);
    }
    for (const Port& port : ports)
        Reach(port.state, Came::FromBox, port.cost + PassageCost(port.state / 2, Direction(port.state % 2)));
}

float TrackSearch::LeastCost(State state) const {
    const int column = state / 2 % grid_.Columns();
    const int row = state / 2 / grid_.Columns();
    const int across = std::max({left_ - column, 0, column - right_});
    const int down = std::max({top_ - row, 0, row - bottom_});
    const bool turns = state % 2 == TrackGrid::Across ? down > 0 : across > 0;
    return haste_ * (float(across + down) + (turns ? cornerCost : 0));
}

bool TrackSearch::IsNearGoal(State state) const {
    const int column = state / 2 % grid_.Columns();
    const int row = state / 2 / grid_.Columns();
    return column >= left_ && column <= right_ && row >= top_ && row <= bottom_;
}

TrackSearch::State TrackSearch::Run(const std::vector<Port>& goals) {
    State best = none;
    float bestCost = std::numeric_limits<float>::max();
    for (std::size_t visits = 0; !open_.empty() && visits < mostVisits; ++visits) {
        std::ranges::pop_heap(open_, std::greater{}, &Candidate::estimate);
        const Candidate next = open_.back();
        open_.pop_back();
        if (next.estimate >= bestCost) break;
        Visit& visit = visits_[std::size_t(next.state)];
        if (visit.isDone) continue;
        visit.isDone = true;
        const Port* goal = IsNearGoal(next.state) ? PortAt(next.state, goals) : nullptr;
        if (goal && visit.cost + goal->cost < bestCost) {
            best = next.state;
            bestCost = visit.cost + goal->cost;
        }
        Extend(next.state);
    }
    return best;
}

void TrackSearch::Extend(State state) {
    const int index = state / 2;
    const auto direction = Direction(state % 2);
    const int column = index % grid_.Columns();
    const int row = index / grid_.Columns();
    const float cost = visits_[std::size_t(state)].cost;
    const int across = direction == TrackGrid::Across ? 1 : 0;
    Step(column + across, row + 1 - across, direction, Came::Forwards, cost);
    Step(column - across, row - 1 + across, direction, Came::Backwards, cost);
    Reach(state ^ 1, Came::Turning, cost + TurnCost(index));
}

void TrackSearch::Step(int column, int row, Direction direction, Came came, float cost) {
    if (!grid_.Has(column, row)) return;
    const int index = grid_.Index(column, row);
    if (!grid_.IsBlocked(index)) Reach(index * 2 + direction, came, cost + 1 + PassageCost(index, direction));
}

void TrackSearch::Reach(State state, Came came, float cost) {
    Visit& visit = visits_[std::size_t(state)];
    if (visit.search == search_ && (visit.isDone || visit.cost <= cost)) return;
    visit = {cost, search_, came, false};
    open_.push_back({cost + LeastCost(state), state});
    std::ranges::push_heap(open_, std::greater{}, &Candidate::estimate);
}

TrackSearch::State TrackSearch::Before(State state) const {
    const int step = state % 2 == TrackGrid::Across ? 2 : 2 * grid_.Columns();
    switch (visits_[std::size_t(state)].came) {
        case Came::FromBox:
            return none;
        case Came::Turning:
            return state ^ 1;
        case Came::Forwards:
            return state - step;
        case Came::Backwards:
            return state + step;
    }
    return none;
}

float TrackSearch::PassageCost(int index, Direction direction) const {
    const std::int32_t along = grid_.GroupAt(index, direction);
    const std::int32_t across = grid_.GroupAt(index, Direction(1 - direction));
    float cost = 0;
    if (along != 0) cost += along == group_ ? joiningCost : overlapCost;
    if (across != 0 && across != group_) cost += crossingCost;
    if (grid_.IsBeside(index)) cost += besideCost;
    return cost;
}

float TrackSearch::TurnCost(int index) const {
    float cost = grid_.IsBeside(index) ? cornerCost + cornerBesideCost : cornerCost;
    for (const auto direction : {TrackGrid::Across, TrackGrid::Down}) {
        const std::int32_t group = grid_.GroupAt(index, direction);
        if (group != 0 && group != group_) cost += touchingCost;
    }
    return cost;
}

std::vector<Point> TrackSearch::LineTo(State end, const std::vector<Port>& ports,
                                       const std::vector<Port>& goals) const {
    std::vector<Point> line{PortAt(end, goals)->border};
    State first = end;
    for (State state = end; state != none; state = Before(state)) {
        const State from = Before(state);
        const int index = state / 2;
        if (from != none && from / 2 == index)  // it turns here
            line.push_back({grid_.X(index % grid_.Columns()), grid_.Y(index / grid_.Columns())});
        first = state;
    }
    line.push_back(PortAt(first, ports)->border);
    std::ranges::reverse(line);
    return line;
}

}  // namespace tessel::diagram
