#include "ui/controls/pane_layout.h"

#include <algorithm>
#include <cctype>

#include "tessel/error.h"

namespace tessel {

namespace {

constexpr double smallestShare = 0.05;

PaneDirection DirectionOf(PaneEdge edge) {
    return edge == PaneEdge::Left || edge == PaneEdge::Right ? PaneDirection::SideBySide
                                                             : PaneDirection::Stacked;
}

bool IsBefore(PaneEdge edge) { return edge == PaneEdge::Left || edge == PaneEdge::Above; }

bool IsName(std::string_view name) {
    const auto belongs = [](unsigned char character) { return character < 128 && std::isalnum(character); };
    return !name.empty() && std::all_of(name.begin(), name.end(), belongs);
}

void Divide(PaneRegion& region, PaneDirection direction, double share, std::unique_ptr<PaneRegion> first,
            std::unique_ptr<PaneRegion> second) {
    region.pane.clear();
    region.direction = direction;
    region.share = share;
    region.first = std::move(first);
    region.second = std::move(second);
    region.first->parent = region.second->parent = &region;
}

// `to` becomes what `from` was, in its own place; `from` is not used any more.
void MoveContents(PaneRegion& from, PaneRegion& to) {
    if (from.IsDivided())
        Divide(to, from.direction, from.share, std::move(from.first), std::move(from.second));
    else
        to.pane = std::move(from.pane);
}

PaneRegion* FindHolder(PaneRegion& region, std::string_view name) {
    if (!region.IsDivided()) return region.pane == name ? &region : nullptr;
    PaneRegion* holder = FindHolder(*region.first, name);
    return holder ? holder : FindHolder(*region.second, name);
}

void AppendOrder(const PaneRegion& region, std::vector<std::string>& order) {
    if (region.IsDivided()) {
        AppendOrder(*region.first, order);
        AppendOrder(*region.second, order);
    } else if (!region.pane.empty()) {
        order.push_back(region.pane);
    }
}

}  // namespace

void PaneLayout::Add(std::string name) {
    if (!IsName(name) || Has(name)) throw Error(ErrorKind::Argument, "no pane can be named '" + name + "'");
    panes_.push_back({.name = name, .caption = name});
}

bool PaneLayout::Has(std::string_view name) const {
    return std::any_of(panes_.begin(), panes_.end(), [&](const Pane& pane) { return pane.name == name; });
}

const Pane& PaneLayout::At(std::string_view name) const {
    for (const Pane& pane : panes_)
        if (pane.name == name) return pane;
    throw Error(ErrorKind::Argument, "there is no pane '" + std::string(name) + "'");
}

Pane& PaneLayout::At(std::string_view name) { return const_cast<Pane&>(std::as_const(*this).At(name)); }

PaneRegion& PaneLayout::Clear() {
    maximised_.clear();
    root_ = std::make_unique<PaneRegion>();
    return *root_;
}

std::pair<PaneRegion*, PaneRegion*> PaneLayout::Split(PaneRegion& region, PaneDirection direction,
                                                      double share, std::string_view first,
                                                      std::string_view second) {
    Divide(region, direction, share, std::make_unique<PaneRegion>(), std::make_unique<PaneRegion>());
    Hold(*region.first, first);
    Hold(*region.second, second);
    return {region.first.get(), region.second.get()};
}

void PaneLayout::Hold(PaneRegion& region, std::string_view name) {
    if (name.empty()) return;
    if (PaneRegion* holder = Holder(name)) holder->pane.clear();
    region.pane = name;
}

double PaneLayout::ShareOfWhole(const PaneRegion& region, PaneDirection direction) {
    const PaneRegion* parent = region.parent;
    if (!parent) return 1;
    const double share = parent->first.get() == &region ? parent->share : 1 - parent->share;
    return ShareOfWhole(*parent, direction) * (parent->direction == direction ? share : 1);
}

PaneRegion* PaneLayout::Holder(std::string_view name) const { return FindHolder(*root_, At(name).name); }

std::vector<std::string> PaneLayout::Order() const {
    std::vector<std::string> order;
    AppendOrder(*root_, order);
    return order;
}

// The region goes, and its other half takes the place of both.
void PaneLayout::Remove(PaneRegion& region) {
    PaneRegion* parent = region.parent;
    if (!parent) return region.pane.clear();
    const auto removed = std::move(parent->first.get() == &region ? parent->first : parent->second);
    const auto kept = std::move(parent->first ? parent->first : parent->second);
    MoveContents(*kept, *parent);
}

void PaneLayout::Dock(std::string_view name, PaneEdge edge, std::optional<std::string_view> target,
                      double share) {
    if (target == name || (target && !Holder(*target))) return;
    if (PaneRegion* holder = Holder(name)) Remove(*holder);
    PaneRegion& region = target ? *Holder(*target) : *root_;
    auto kept = std::make_unique<PaneRegion>();
    auto docked = std::make_unique<PaneRegion>();
    MoveContents(region, *kept);
    docked->pane = name;
    if (IsBefore(edge))
        Divide(region, DirectionOf(edge), share, std::move(docked), std::move(kept));
    else
        Divide(region, DirectionOf(edge), 1 - share, std::move(kept), std::move(docked));
    maximised_.clear();
}

void PaneLayout::Swap(std::string_view name, std::string_view other) {
    PaneRegion* one = Holder(name);
    PaneRegion* two = Holder(other);
    if (!one || !two) return;
    std::swap(one->pane, two->pane);
    maximised_.clear();
}

void PaneLayout::SetMaximised(std::string_view name) { maximised_ = name; }

void PaneLayout::SetVisible(std::string_view name, bool visible) {
    At(name).visible = visible;
    if (visible ? maximised_ != name : maximised_ == name) maximised_.clear();
}

bool PaneLayout::IsSeen(std::string_view name) const {
    return At(name).visible && Holder(name) && (maximised_.empty() || maximised_ == name);
}

bool PaneLayout::IsSeen(const PaneRegion& region) const {
    if (region.IsDivided()) return IsSeen(*region.first) || IsSeen(*region.second);
    return !region.pane.empty() && IsSeen(region.pane);
}

// The part that the pane is in, of the division that sizes it.
PaneRegion* PaneLayout::PartAround(std::string_view name, PaneDirection direction) const {
    for (PaneRegion* part = Holder(name); part && part->parent; part = part->parent) {
        const PaneRegion& whole = *part->parent;
        if (whole.direction == direction && IsSeen(*whole.first) && IsSeen(*whole.second)) return part;
    }
    return nullptr;
}

bool PaneLayout::CanGrow(std::string_view name, PaneDirection direction) const {
    return PartAround(name, direction);
}

void PaneLayout::Grow(std::string_view name, PaneDirection direction, double change) {
    const PaneRegion* part = PartAround(name, direction);
    if (!part) return;
    PaneRegion& whole = *part->parent;
    const double share = whole.share + (part == whole.first.get() ? change : -change);
    whole.share = std::clamp(share, smallestShare, 1 - smallestShare);
}

}  // namespace tessel
