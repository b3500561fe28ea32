#include <QApplication>
#include <QMouseEvent>
#include <QRubberBand>
#include <QScrollBar>
#include <cmath>
#include <utility>

#include "platform/diagram/seek.h"
#include "ui/controls/diagram_view.h"

namespace tessel {

namespace {

constexpr double nearLink = 6;      // pixels on the screen
constexpr double nearHandle = 9;    // likewise
constexpr double handlesFrom = 40;  // percent of zoom

}  // namespace

diagram::Point DiagramView::PointAt(const QPoint& place) const { return ToUnits(mapToScene(place)); }

std::string DiagramView::BoxAt(const QPoint& place) const {
    const diagram::Box* box = diagram::BoxAt(content_, PointAt(place));
    return box ? box->key : "";
}

std::string DiagramView::LinkAt(const QPoint& place) const {
    const double within = nearLink / (diagram::pixelsOfUnit * zoom_ / 100);
    const diagram::Link* link = diagram::LinkAt(content_, PointAt(place), within);
    return link ? link->key : "";
}

std::string DiagramView::HandleAt(const QPoint& place) const {
    if (hovered_.empty() || zoom_ < handlesFrom) return "";
    return QLineF(HandleOf(hovered_), place).length() <= nearHandle ? hovered_ : "";
}

void DiagramView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    emit MousePressed(event->button());
    if (doing_ != Doing::Nothing) return CancelMouse();
    pressedAt_ = place;
    popupAtPointer_ = true;
    if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && spaceIsDown_))
        doing_ = Doing::Panning;
    else if (event->button() == Qt::LeftButton)
        PressLeft(place, event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    else if (event->button() == Qt::RightButton && !BoxAt(place).empty())
        SetCurrentBox(BoxAt(place));
    SetPointer();
}

void DiagramView::PressLeft(const QPoint& place, bool adds) {
    doing_ = Doing::Pressing;
    if (connecting_) return;
    if (const std::string from = HandleAt(place); !from.empty()) {
        doing_ = Doing::Connecting;
        newLinkEnd_ = place;
        return StartConnecting(from);
    }
    if (const std::string box = BoxAt(place); !box.empty()) return PressBox(box, adds);
    if (!adds) marks_.selected.clear();
    if (!adds && !marks_.current.empty()) marks_.selected.insert(marks_.current);
    viewport()->update();
}

void DiagramView::PressBox(const std::string& key, bool adds) {
    if (adds && marks_.selected.contains(key) && marks_.selected.size() > 1 && key != marks_.current) {
        marks_.selected.erase(key);
        viewport()->update();
        return;
    }
    if (adds) marks_.selected.insert(key);
    SetCurrentBox(key);
}

void DiagramView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    switch (doing_) {
        case Doing::Nothing:
            return connecting_ ? PointAtTarget(place) : Hover(place);
        case Doing::Pressing:
            return StartMoving(place);
        case Doing::Dragging:
            return Drag(place);
        case Doing::Framing:
            return Frame(place);
        case Doing::Panning:
            return Pan(place);
        case Doing::Connecting:
            return PointAtTarget(place);
    }
}

void DiagramView::StartMoving(const QPoint& place) {
    if (!HasMoved(place) || connecting_) return;
    const std::string box = BoxAt(pressedAt_);
    if (marks_.selected.contains(box)) {
        doing_ = Doing::Dragging;
        draggedTo_ = {};
        Drag(place);
    } else if (box.empty()) {
        doing_ = Doing::Framing;
        Frame(place);
        frame_->show();
    }
    SetPointer();
}

// In steps of the grid, so that boxes are easily put in line.
void DiagramView::Drag(const QPoint& place) {
    const auto snapped = [](double units) {
        return std::round(units / diagram::gridPitch) * diagram::gridPitch;
    };
    const double unit = diagram::pixelsOfUnit * zoom_ / 100;
    const diagram::Point to{snapped((place.x() - pressedAt_.x()) / unit),
                            snapped((place.y() - pressedAt_.y()) / unit)};
    if (to == draggedTo_) return;
    const diagram::Content::Keys boxes(marks_.selected.begin(), marks_.selected.end());
    content_.Move(boxes, {to.x - draggedTo_.x, to.y - draggedTo_.y}, diagram::Content::Lines::Sketched);
    draggedTo_ = to;
    viewport()->update();
}

void DiagramView::Frame(const QPoint& place) {
    const QRect frame = QRect(pressedAt_, place).normalized();
    frame_->setGeometry(frame);
    const auto inside = BoxesIn(content_, ToUnits(mapToScene(frame).boundingRect()));
    marks_.selected = {inside.begin(), inside.end()};
    viewport()->update();
}

void DiagramView::Pan(const QPoint& place) {
    const QPoint by = place - pressedAt_;
    pressedAt_ = place;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
}

void DiagramView::PointAtTarget(const QPoint& place) {
    newLinkEnd_ = place;
    Target(BoxAt(place));
}

void DiagramView::Hover(const QPoint& place) {
    const std::string box = viewport()->rect().contains(place) ? BoxAt(place) : "";
    const bool stays = box.empty() && !HandleAt(place).empty();
    if (stays || box == hovered_) return;
    hovered_ = zoom_ < handlesFrom ? "" : box;
    viewport()->update();
}

void DiagramView::mouseReleaseEvent(QMouseEvent* event) {
    Release(event->button(), event->position().toPoint());
    SetPointer();
}

void DiagramView::Release(Qt::MouseButton button, const QPoint& place) {
    const Doing did = std::exchange(doing_, Doing::Nothing);
    if (did == Doing::Dragging) FinishMoving();
    if (did == Doing::Framing) frame_->hide();
    if (did == Doing::Connecting && !HasMoved(place)) return ClickHandle(button);
    if (did == Doing::Connecting || (did == Doing::Pressing && connecting_)) return FinishConnecting(true);
    if (did == Doing::Pressing || (did == Doing::Nothing && button == Qt::RightButton)) Click(button, place);
}

bool DiagramView::HasMoved(const QPoint& place) const {
    return (place - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
}

// A handle lies half in its box, and a click there is one on the box.
void DiagramView::ClickHandle(Qt::MouseButton button) {
    const std::string box = *connecting_;
    FinishConnecting(false);
    SetCurrentBox(box);
    emit BoxClicked(box, button);
}

void DiagramView::Click(Qt::MouseButton button, const QPoint& place) {
    if (const std::string box = BoxAt(place); !box.empty()) {
        emit BoxClicked(box, button);
    } else if (const std::string link = LinkAt(place); !link.empty()) {
        SetCurrentLink(link);
        emit LinkClicked(link, button);
    } else {
        emit BackgroundClicked(button);
    }
}

void DiagramView::FinishMoving() {
    const diagram::Content::Keys boxes(marks_.selected.begin(), marks_.selected.end());
    content_.Move(boxes, {}, diagram::Content::Lines::Undrawn);  // they were only sketched
    content_.Route();
    emit Arranged();
    emit BoxClicked(marks_.current, Qt::LeftButton);
}

// A second button, or Escape, ends what the first one began as if it had not been.
void DiagramView::CancelMouse() {
    const Doing did = std::exchange(doing_, Doing::Nothing);
    frame_->hide();
    if (did == Doing::Connecting) FinishConnecting(false);
    if (did == Doing::Dragging) {
        const diagram::Content::Keys boxes(marks_.selected.begin(), marks_.selected.end());
        content_.Move(boxes, {-draggedTo_.x, -draggedTo_.y}, diagram::Content::Lines::Undrawn);
        content_.Route();
        Renew();
    }
    SetPointer();
}

void DiagramView::mouseDoubleClickEvent(QMouseEvent* event) {
    const std::string box = BoxAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || box.empty() || connecting_) return mousePressEvent(event);
    emit MousePressed(event->button());
    emit BoxDoubleClicked(box);
}

void DiagramView::SetPointer() {
    const bool pans = doing_ == Doing::Panning;
    if (pans || spaceIsDown_)
        viewport()->setCursor(pans ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    else if (doing_ == Doing::Dragging)
        viewport()->setCursor(Qt::SizeAllCursor);
    else if (connecting_)
        viewport()->setCursor(Qt::CrossCursor);
    else
        viewport()->unsetCursor();
}

void DiagramView::StartConnecting(const std::string& from) {
    connecting_ = from;
    marks_.target.clear();
    SetPointer();
    viewport()->update();
}

void DiagramView::Target(const std::string& key) {
    marks_.target = key;
    viewport()->update();
}

void DiagramView::FinishConnecting(bool connects) {
    const std::string from = std::exchange(connecting_, std::nullopt).value_or("");
    const std::string to = std::exchange(marks_.target, {});
    doing_ = Doing::Nothing;
    SetPointer();
    viewport()->update();
    if (connects && !to.empty()) emit BoxesConnected(from, to);
}

}  // namespace tessel
