#pragma once

#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/diagram/diagram.h"
#include "platform/diagram/diagram_file.h"

namespace tessel::diagram {

// A diagram that is being edited. A key that is not there is passed over. Links that have become undrawn are
// drawn by Route.
class Content {
  public:
    using Keys = std::vector<std::string>;

    [[nodiscard]] const Diagram& Drawing() const { return Tidy(), diagram_; }
    [[nodiscard]] const std::vector<Rect>& Outlines() const { return Tidy(), outlines_; }  // of the boxes

    // Null when it is not there. Good until another call.
    [[nodiscard]] const Box* FindBox(const std::string& key) const;
    [[nodiscard]] const Link* FindLink(const std::string& key) const;
    [[nodiscard]] Rect OutlineOf(const std::string& key) const;
    [[nodiscard]] Rect Extent() const;  // the Bounds of the drawing

    // Remembers, until the next load, where boxes stand that were arranged since the last load or save.
    void Clear();

    // Where a box with that caption stands or stood, or else at the place.
    void AddBox(const std::string& key, const std::string& caption, Point place);
    void RemoveBox(const std::string& key);  // and its links
    void SetCaption(const std::string& key, const std::string& caption);
    void SetWidth(const std::string& key, double width);
    void SetColour(const std::string& key, std::uint32_t colour);
    void SetComment(const std::string& key, const std::string& comment);

    // Nothing when a box is missing.
    void AddLink(const Link& link);
    void RemoveLink(const std::string& key);
    void SetLinkCaption(const std::string& key, const std::string& caption);

    // Moves the boxes together; their links become undrawn, or are sketched.
    enum class Lines { Undrawn, Sketched };
    void Move(std::span<const std::string> boxes, Point by, Lines lines);
    void Route();

    // As one step, which UndoPlacement takes back.
    bool Place(const KeepOn& keepOn);
    [[nodiscard]] bool CanUndoPlacement() const { return !before_.empty(); }
    void UndoPlacement();

    // Whether boxes were moved or placed since the last load or save.
    [[nodiscard]] bool IsArranged() const { return isArranged_; }

    // Takes up the file, to an empty content; false when it cannot be read. A damaged file is kept aside, and
    // a missing one is a diagram that was never arranged, if there was one at the path before. Nothing
    // throws.
    bool Load(const std::string& path);
    [[nodiscard]] const std::optional<Sight>& StoredSight() const { return sight_; }  // in the loaded file
    void Save(const std::string& path, const Sight& sight);                           // as SaveDiagram

  private:
    using Places = std::unordered_map<std::string, Point>;

    [[nodiscard]] Box* BoxOf(const std::string& key);
    [[nodiscard]] Link* LinkOf(const std::string& key);
    void Tidy() const;
    void Index() const;
    void Uncount(const std::string& caption);
    void Renew(const Box& box);  // after its size or place changed
    void UndrawLinksOf(const std::string& key);
    [[nodiscard]] Point PlaceFor(const std::string& key, const std::string& caption, Point place);
    void TakeUp(Diagram diagram);

    // What is removed leaves the lists when somebody looks at them, so that many may go at once.
    mutable Diagram diagram_;
    mutable std::vector<Rect> outlines_;
    mutable std::unordered_map<std::string, std::size_t> boxes_;  // indexes by key
    mutable std::unordered_map<std::string, std::size_t> links_;
    mutable std::unordered_set<std::string> gone_;  // boxes that are in the lists only
    mutable bool isTidy_ = true;
    mutable std::unordered_map<std::string, std::size_t> captions_;  // how many boxes have each
    Places removed_;                                                 // of removed boxes, by caption
    Places arranged_;                                                // of boxes at the last Clear, by key
    Places before_;                                                  // the last placement, by key
    bool isArranged_ = false;
    std::optional<Sight> sight_{};
    std::string path_;  // of the file that was there at the last load or save
};

}  // namespace tessel::diagram
