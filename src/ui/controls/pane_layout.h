#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessel {

enum class PaneDirection { SideBySide, Stacked };

enum class PaneEdge { Left, Right, Above, Below };

struct Pane {
    std::string name;     // ASCII letters and digits
    std::string caption;  // UTF-8
    bool visible = true;
};

// A part of the arrangement: divided into two parts, or held by a pane, or by none yet.
struct PaneRegion {
    std::string pane;  // of a divided region, and of one that nobody holds: empty
    PaneRegion* parent = nullptr;
    PaneDirection direction = PaneDirection::SideBySide;
    double share = 0.5;  // the first part's share of the room, above 0 and below 1
    std::unique_ptr<PaneRegion> first;
    std::unique_ptr<PaneRegion> second;

    [[nodiscard]] bool IsDivided() const { return first != nullptr; }
};

// How panes divide a rectangle among themselves, as a tree of regions that each are divided in two. A pane
// that no region holds is seen nowhere. What names an unknown pane throws ErrorKind::Argument, but for Has.
class PaneLayout {
  public:
    void Add(std::string name);  // held by no region
    [[nodiscard]] bool Has(std::string_view name) const;
    [[nodiscard]] Pane& At(std::string_view name);
    [[nodiscard]] const Pane& At(std::string_view name) const;
    [[nodiscard]] const std::vector<Pane>& Panes() const { return panes_; }  // as they were added

    // Regions stay where they are until the next Clear, Dock or Import.
    [[nodiscard]] PaneRegion& Root() { return *root_; }
    [[nodiscard]] const PaneRegion& Root() const { return *root_; }
    PaneRegion& Clear();  // one region, held by no pane
    // Divides the region, which is not divided; the names are those of the parts' panes, empty for none.
    std::pair<PaneRegion*, PaneRegion*> Split(PaneRegion& region, PaneDirection direction, double share,
                                              std::string_view first, std::string_view second);
    // The region's share of the whole extent in this direction while every pane is seen.
    [[nodiscard]] static double ShareOfWhole(const PaneRegion& region, PaneDirection direction);

    // The region that the pane holds, and the panes of all regions from first to last.
    [[nodiscard]] PaneRegion* Holder(std::string_view name) const;
    [[nodiscard]] std::vector<std::string> Order() const;

    // Moves the pane to an edge of the target pane, or of the whole when there is none, with this share of
    // the room. A pane is not docked at itself.
    void Dock(std::string_view name, PaneEdge edge, std::optional<std::string_view> target, double share);
    void Swap(std::string_view name, std::string_view other);

    // While a pane is maximised it alone is seen. Any other change of what is seen ends that.
    [[nodiscard]] const std::string& Maximised() const { return maximised_; }  // empty when none is
    void SetMaximised(std::string_view name);                                  // empty for none
    void SetVisible(std::string_view name, bool visible);
    [[nodiscard]] bool IsSeen(std::string_view name) const;
    [[nodiscard]] bool IsSeen(const PaneRegion& region) const;  // whether any of its panes is

    // Changes the pane's share by `change`, in the nearest division in this direction whose parts are both
    // seen; nothing when there is none.
    [[nodiscard]] bool CanGrow(std::string_view name, PaneDirection direction) const;
    void Grow(std::string_view name, PaneDirection direction, double change);

    // The arrangement with captions, visibilities and the maximised pane as one line. Regions without a pane
    // are left out.
    [[nodiscard]] std::string Export() const;
    // Any text may be given; one that is damaged, or that does not hold exactly these panes, is refused: the
    // answer is false, and nothing has changed.
    [[nodiscard]] bool Import(std::string_view text);

  private:
    [[nodiscard]] PaneRegion* PartAround(std::string_view name, PaneDirection direction) const;
    void Hold(PaneRegion& region, std::string_view name);
    void Remove(PaneRegion& region);

    std::vector<Pane> panes_;
    std::unique_ptr<PaneRegion> root_ = std::make_unique<PaneRegion>();
    std::string maximised_;
};

}  // namespace tessel
