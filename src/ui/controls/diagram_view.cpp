#include "ui/controls/diagram_view.h"

#include <QHelpEvent>
#include <QNativeGestureEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QRubberBand>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <cmath>

#include "platform/diagram/seek.h"
#include "ui/controls/diagram_accessible.h"

namespace tessel {

namespace {

constexpr int smallestZoom = 10;
constexpr int largestZoom = 1000;
constexpr int shownAround = 40;  // pixels around a box that is brought into view
constexpr double handleRadius = 5;

}  // namespace

DiagramView::DiagramView(diagram::Content& content, QWidget* parent)
    : QGraphicsView(parent),
      content_(content),
      scene_(new QGraphicsScene(this)),
      frame_(new QRubberBand(QRubberBand::Rectangle, viewport())) {
    setObjectName("DiagramView");
    setScene(scene_);
    setInteractive(false);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    viewport()->grabGesture(Qt::PinchGesture);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    SetBackground({});
    FitScene();
}

void DiagramView::SetCurrentBox(const std::string& key) {
    const std::string box = content_.FindBox(key) ? key : "";
    const diagram::Link* link = content_.FindLink(marks_.currentLink);
    if (!link || link->from != box) marks_.currentLink.clear();
    if (!marks_.selected.contains(box)) marks_.selected.clear();
    if (!box.empty()) marks_.selected.insert(box);
    marks_.current = box;
    viewport()->update();
    TellScreenReaders(*this);
}

void DiagramView::SetCurrentLink(const std::string& key) {
    marks_.currentLink = content_.FindLink(key) ? key : "";
    viewport()->update();
    TellScreenReaders(*this);
}

void DiagramView::SetFound(std::set<std::string> keys) {
    marks_.found = std::move(keys);
    viewport()->update();
}

void DiagramView::Renew() {
    const auto isGone = [this](const std::string& key) { return !content_.FindBox(key); };
    std::erase_if(marks_.selected, isGone);
    if (isGone(marks_.current)) marks_.current.clear();
    if (isGone(hovered_)) hovered_.clear();
    if (!content_.FindLink(marks_.currentLink)) marks_.currentLink.clear();
    if (connecting_ && isGone(*connecting_)) FinishConnecting(false);
    FitScene();
    viewport()->update();
}

// The user can scroll so far that any box stands at any edge of the view.
void DiagramView::FitScene() {
    const QRectF bounds = ToPixels(content_.Extent());
    const double scale = zoom_ / 100.0;
    const double air = 24 / scale;
    const double x = std::max(air, viewport()->width() / scale - air);
    const double y = std::max(air, viewport()->height() / scale - air);
    const QRectF all = bounds.adjusted(-x, -y, x, y);
    if (all != sceneRect()) setSceneRect(all);
    if (isFirst_ && !content_.Drawing().boxes.empty()) {
        isFirst_ = false;
        const QPointF view(viewport()->width() / scale / 2, viewport()->height() / scale / 2);
        centerOn(bounds.topLeft() + view - QPointF(air, air));
    }
}

// A box that is seen already stays where it is, under the pointer that perhaps clicks it a second time.
void DiagramView::BringIntoView(const std::string& box) {
    if (!content_.FindBox(box)) return;
    const QRectF place = ToPixels(content_.OutlineOf(box));
    const QRect seen = mapFromScene(place).boundingRect();
    if (!viewport()->rect().contains(seen)) ensureVisible(place, shownAround, shownAround);
}

void DiagramView::SetZoom(int percent) { ZoomAround(viewport()->rect().center(), percent); }

void DiagramView::ZoomAround(QPoint place, int percent) {
    const int zoom = std::clamp(percent, smallestZoom, largestZoom);
    if (zoom == zoom_) return;
    const QPointF there = mapToScene(place);
    zoom_ = zoom;
    setTransformationAnchor(NoAnchor);
    setTransform(QTransform::fromScale(zoom / 100.0, zoom / 100.0));
    FitScene();
    const QPointF middle = mapToScene(viewport()->rect().center());
    centerOn(middle + there - mapToScene(place));
    viewport()->update();
    emit ZoomChanged(zoom_);
}

void DiagramView::ZoomBy(double factor, QPoint around) {
    const double wanted = (zoom_ + zoomRest_) * factor;
    ZoomAround(around, int(std::lround(wanted)));
    zoomRest_ = std::clamp(wanted - zoom_, -0.5, 0.5);
}

void DiagramView::ZoomToFit() {
    const QRectF bounds = ToPixels(content_.Extent());
    if (bounds.isEmpty()) return;
    constexpr double air = 2 * 16;
    const double across = (viewport()->width() - air) / bounds.width();
    const double down = (viewport()->height() - air) / bounds.height();
    SetZoom(int(std::min({across, down, 1.0}) * 100));
    centerOn(bounds.center());
}

diagram::Sight DiagramView::Sight() const {
    return {zoom_, ToUnits(mapToScene(viewport()->rect().center()))};
}

void DiagramView::Restore(const diagram::Sight& sight) {
    isFirst_ = false;
    SetZoom(sight.zoom);
    FitScene();
    centerOn(ToPixels(sight.middle));
}

void DiagramView::SetBackground(const QColor& colour) {
    background_ = colour;
    setBackgroundBrush(colour.isValid() ? colour : palette().color(QPalette::Base));
}

QRect DiagramView::SeenAt(const std::string& box) const {
    return mapFromScene(ToPixels(content_.OutlineOf(box))).boundingRect();
}

QPoint DiagramView::HandleOf(const std::string& box) const {
    const QRectF outline = ToPixels(content_.OutlineOf(box));
    return mapFromScene(QPointF(outline.right(), outline.center().y()));
}

QPoint DiagramView::PopupPlace() const {
    if (popupAtPointer_) return viewport()->mapToGlobal(pressedAt_);
    const QRect box = SeenAt(marks_.current);
    const bool isSeen = !marks_.current.empty() && viewport()->rect().intersects(box);
    const QPoint place = isSeen ? box.intersected(viewport()->rect()).center() : viewport()->rect().center();
    return viewport()->mapToGlobal(place);
}

void DiagramView::paintEvent(QPaintEvent* event) {
    exposed_ = event->region();
    QGraphicsView::paintEvent(event);
}

// Scrolling askew exposes two narrow stripes, whose common area would be all that is seen.
void DiagramView::drawForeground(QPainter* painter, const QRectF&) {
    const DiagramColours colours(palette());
    for (const QRect& part : exposed_) {
        const QRectF area = mapToScene(part.adjusted(-1, -1, 1, 1)).boundingRect();
        painter->save();
        painter->setClipRect(mapToScene(part).boundingRect());
        PaintDiagram(*painter, content_, area, colours, marks_, font());
        painter->restore();
    }
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::Antialiasing);
    PaintHandle(*painter);
    PaintNewLink(*painter);
    painter->restore();
}

void DiagramView::PaintHandle(QPainter& painter) const {
    if (hovered_.empty() || doing_ == Doing::Dragging || doing_ == Doing::Framing) return;
    painter.setPen(QPen(palette().color(QPalette::Base), 1.5));
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawEllipse(QPointF(HandleOf(hovered_)), handleRadius, handleRadius);
}

void DiagramView::PaintNewLink(QPainter& painter) const {
    if (!connecting_) return;
    const QColor colour = palette().color(QPalette::Highlight);
    const QPoint end = marks_.target.empty() ? newLinkEnd_ : SeenAt(marks_.target).center();
    if (*connecting_ != marks_.target) {
        painter.setPen(QPen(colour, 2, Qt::DashLine));
        painter.drawLine(HandleOf(*connecting_), end);
    }
    const QRectF room(12, 8, viewport()->width() - 24, viewport()->height());
    const int flags = Qt::AlignLeft | Qt::TextWordWrap;
    painter.setFont(font());
    const QRectF text = painter.boundingRect(room, flags, hint_);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::ToolTipBase));
    painter.drawRoundedRect(text.adjusted(-6, -4, 6, 4), 4, 4);
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(text, flags, hint_);
}

void DiagramView::ShowToolTip(const QPoint& place, const QPoint& onScreen) {
    QString text;
    if (const auto* box = content_.FindBox(BoxAt(place)))
        text =
            QString::fromStdString(box->comment.empty() ? box->caption : box->caption + "\n" + box->comment);
    else if (const auto* link = content_.FindLink(LinkAt(place)))
        text = QString::fromStdString(link->caption);
    // What people wrote is no markup.
    QToolTip::showText(
        onScreen, Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text,
        viewport());
}

bool DiagramView::viewportEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::ToolTip: {
            const auto* help = static_cast<QHelpEvent*>(event);
            ShowToolTip(help->pos(), help->globalPos());
            return true;
        }
        case QEvent::NativeGesture: {
            const auto* gesture = static_cast<QNativeGestureEvent*>(event);
            if (gesture->gestureType() == Qt::ZoomNativeGesture)
                ZoomBy(1 + gesture->value(), gesture->position().toPoint());
            return true;
        }
        case QEvent::Gesture: {
            auto* gesture = static_cast<QGestureEvent*>(event)->gesture(Qt::PinchGesture);
            if (const auto* pinch = static_cast<QPinchGesture*>(gesture)) ZoomBy(pinch->scaleFactor());
            return true;
        }
        case QEvent::Leave:
            Hover({-1, -1});
            break;
        default:
            break;
    }
    return QGraphicsView::viewportEvent(event);
}

void DiagramView::changeEvent(QEvent* event) {
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) SetBackground(background_);
}

void DiagramView::focusInEvent(QFocusEvent* event) {
    QGraphicsView::focusInEvent(event);
    emit GotFocus();
}

void DiagramView::focusOutEvent(QFocusEvent* event) {
    spaceIsDown_ = false;
    QGraphicsView::focusOutEvent(event);
}

void DiagramView::resizeEvent(QResizeEvent* event) {
    QGraphicsView::resizeEvent(event);
    FitScene();
}

void DiagramView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return QGraphicsView::wheelEvent(event);
    constexpr double notch = 120;
    ZoomBy(std::pow(1.15, event->angleDelta().y() / notch), event->position().toPoint());
    event->accept();
}

}  // namespace tessel
