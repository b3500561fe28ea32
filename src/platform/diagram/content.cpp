#include "platform/diagram/content.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "platform/diagram/place.h"
#include "platform/diagram/route.h"
#include "platform/files/file_service.h"
#include "tessel/error.h"

namespace tessel::diagram {

namespace {

void Put(Box& box, Point place) {
    box.rect.x = place.x;
    box.rect.y = place.y;
}

bool Exists(const std::string& path) {
    try {
        return files::FileExists(path);
    } catch (const Error&) {
        return false;
    }
}

// Nothing when the file cannot be read; a damaged one is kept aside.
std::optional<StoredDiagram> Read(const std::string& path) {
    if (!Exists(path)) return std::nullopt;
    try {
        return LoadStoredDiagram(path);
    } catch (const Error& error) {
        if (error.Kind() != ErrorKind::Xml) return std::nullopt;
    }
    try {
        KeepAside(path);
    } catch (const Error&) {
        // Saving tries again, and says what is in the way.
    }
    return std::nullopt;
}

}  // namespace

const Box* Content::FindBox(const std::string& key) const {
    const auto found = boxes_.find(key);
    return found == boxes_.end() ? nullptr : &diagram_.boxes[found->second];
}

const Link* Content::FindLink(const std::string& key) const {
    const auto found = links_.find(key);
    if (found == links_.end()) return nullptr;
    const Link& link = diagram_.links[found->second];
    return gone_.contains(link.from) || gone_.contains(link.to) ? nullptr : &link;
}

Box* Content::BoxOf(const std::string& key) { return const_cast<Box*>(FindBox(key)); }
Link* Content::LinkOf(const std::string& key) { return const_cast<Link*>(FindLink(key)); }

Rect Content::OutlineOf(const std::string& key) const {
    const auto found = boxes_.find(key);
    return found == boxes_.end() ? Rect{} : outlines_[found->second];
}

Rect Content::Extent() const {
    std::vector<Point> corners;
    for (const Rect& outline : Outlines()) {
        corners.push_back({outline.x, outline.y});
        corners.push_back({outline.Right(), outline.Bottom()});
    }
    for (const Link& link : Drawing().links)
        corners.insert(corners.end(), link.points.begin(), link.points.end());
    return Bounds(corners);
}

void Content::Clear() {
    if (isArranged_) {
        for (const Box& box : Drawing().boxes) {
            arranged_[box.key] = {box.rect.x, box.rect.y};
            removed_[box.caption] = {box.rect.x, box.rect.y};
        }
    }
    TakeUp({});
}

void Content::AddBox(const std::string& key, const std::string& caption, Point place) {
    if (FindBox(key)) return;
    if (gone_.contains(key)) Tidy();
    const Point at = PlaceFor(key, caption, place);
    boxes_[key] = diagram_.boxes.size();
    ++captions_[caption];
    diagram_.boxes.push_back({key, caption, "", {at.x, at.y, FittingWidth(caption), fittingHeight}});
    outlines_.push_back(Outline(diagram_.boxes.back()));
}

Point Content::PlaceFor(const std::string& key, const std::string& caption, Point place) {
    if (const auto known = arranged_.find(key); known != arranged_.end()) return known->second;
    if (const auto known = removed_.extract(caption)) return known.mapped();
    if (!captions_.contains(caption)) return place;
    const auto same = std::ranges::find(Drawing().boxes, caption, &Box::caption);
    return {same->rect.x, same->rect.y};
}

void Content::RemoveBox(const std::string& key) {
    const Box* box = FindBox(key);
    if (!box) return;
    removed_[box->caption] = {box->rect.x, box->rect.y};
    Uncount(box->caption);
    boxes_.erase(box->key);
    gone_.insert(box->key);
    isTidy_ = false;
}

void Content::Uncount(const std::string& caption) {
    const auto counted = captions_.find(caption);
    if (--counted->second == 0) captions_.erase(counted);
}

void Content::Tidy() const {
    if (isTidy_) return;
    std::erase_if(diagram_.links, [this](const Link& link) { return FindLink(link.key) != &link; });
    std::erase_if(diagram_.boxes, [this](const Box& box) { return gone_.contains(box.key); });
    Index();
}

void Content::Index() const {
    boxes_.clear();
    links_.clear();
    outlines_.clear();
    captions_.clear();
    gone_.clear();
    isTidy_ = true;
    for (const Box& box : diagram_.boxes) {
        boxes_[box.key] = outlines_.size();
        outlines_.push_back(Outline(box));
        ++captions_[box.caption];
    }
    for (std::size_t i = 0; i < diagram_.links.size(); ++i) links_[diagram_.links[i].key] = i;
}

void Content::SetCaption(const std::string& key, const std::string& caption) {
    Box* box = BoxOf(key);
    if (!box || box->caption == caption) return;
    Uncount(box->caption);
    ++captions_[caption];
    box->caption = caption;
    Renew(*box);
}

void Content::SetWidth(const std::string& key, double width) {
    Box* box = BoxOf(key);
    if (!box) return;
    box->rect.width = width;
    Renew(*box);
}

void Content::SetColour(const std::string& key, std::uint32_t colour) {
    if (Box* box = BoxOf(key)) box->colour = colour;
}

void Content::SetComment(const std::string& key, const std::string& comment) {
    if (Box* box = BoxOf(key)) box->comment = comment;
}

void Content::Renew(const Box& box) {
    Rect& outline = outlines_[boxes_.at(box.key)];
    const Rect now = Outline(box);
    if (now == outline) return;
    outline = now;
    UndrawLinksOf(box.key);
}

void Content::UndrawLinksOf(const std::string& key) {
    for (Link& link : diagram_.links)
        if (link.from == key || link.to == key) link.points.clear();
}

void Content::AddLink(const Link& link) {
    if (!FindBox(link.from) || !FindBox(link.to)) return;
    if (Link* known = LinkOf(link.key)) {
        const bool joinsTheSame = known->from == link.from && known->to == link.to;
        *known = {link.key, link.caption, link.from, link.to, joinsTheSame ? known->points : link.points};
        return;
    }
    links_[link.key] = diagram_.links.size();
    diagram_.links.push_back(link);
}

void Content::RemoveLink(const std::string& key) {
    if (links_.erase(key) > 0) isTidy_ = false;
}

void Content::SetLinkCaption(const std::string& key, const std::string& caption) {
    if (Link* link = LinkOf(key)) link->caption = caption;
}

void Content::Move(std::span<const std::string> boxes, Point by, Lines lines) {
    std::unordered_set<std::string> moved;
    for (const std::string& key : boxes) {
        Box* box = BoxOf(key);
        if (!box) continue;
        box->rect.x += by.x;
        box->rect.y += by.y;
        outlines_[boxes_.at(key)] = Outline(*box);
        moved.insert(key);
    }
    for (Link& link : diagram_.links) {
        const bool fromMoved = moved.contains(link.from);
        const bool toMoved = moved.contains(link.to);
        if (fromMoved && toMoved) {
            for (Point& point : link.points) point = {point.x + by.x, point.y + by.y};
        } else if (fromMoved || toMoved) {
            link.points.clear();
            if (lines == Lines::Sketched) link.points = Sketch(OutlineOf(link.from), OutlineOf(link.to));
        }
    }
    isArranged_ = isArranged_ || !moved.empty();
}

void Content::Route() {
    const auto isUndrawn = [](const Link& link) { return link.points.empty(); };
    if (std::ranges::any_of(Drawing().links, isUndrawn)) RouteLinks(diagram_);
}

bool Content::Place(const KeepOn& keepOn) {
    Diagram placed = Drawing();
    if (!PlaceBoxes(placed, keepOn)) return false;
    before_.clear();
    for (const Box& box : diagram_.boxes) before_[box.key] = {box.rect.x, box.rect.y};
    TakeUp(std::move(placed));
    isArranged_ = isArranged_ || !diagram_.boxes.empty();
    return true;
}

void Content::UndoPlacement() {
    Diagram undone = Drawing();
    for (Box& box : undone.boxes)
        if (const auto place = before_.find(box.key); place != before_.end()) Put(box, place->second);
    for (Link& link : undone.links) link.points.clear();
    before_.clear();
    TakeUp(std::move(undone));
    Route();
}

bool Content::Load(const std::string& path) {
    if (path_ == path && !Exists(path)) {  // someone took the arrangement away
        removed_.clear();
        arranged_.clear();
    }
    std::optional<StoredDiagram> loaded = Read(path);
    if (loaded) path_ = path;
    sight_ = loaded ? loaded->sight : std::nullopt;
    Diagram diagram = loaded ? std::move(loaded->diagram) : Diagram{};
    for (Box& box : diagram.boxes)
        if (const auto place = arranged_.find(box.key); place != arranged_.end()) Put(box, place->second);
    isArranged_ = !arranged_.empty();
    DropStrayLines(diagram);
    TakeUp(std::move(diagram));
    return loaded.has_value();
}

void Content::Save(const std::string& path, const Sight& sight) {
    SaveDiagram(path, Drawing(), sight);
    path_ = path;
    arranged_.clear();
    isArranged_ = false;
}

void Content::TakeUp(Diagram diagram) {
    diagram_ = std::move(diagram);
    Index();
}

}  // namespace tessel::diagram
