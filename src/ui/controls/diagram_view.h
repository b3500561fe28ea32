#pragma once

#include <QGraphicsView>
#include <optional>

#include "ui/controls/diagram_paint.h"

class QRubberBand;

namespace tessel {

// The sheet that shows a diagram's content and takes the user's input; TDiagram says what the signals mean.
// The content and the marks are the diagram's; what the user does to them is done there, and said.
class DiagramView : public QGraphicsView {
    Q_OBJECT

  public:
    explicit DiagramView(diagram::Content& content, QWidget* parent = nullptr);

    [[nodiscard]] const diagram::Content& Content() const { return content_; }
    [[nodiscard]] const DiagramMarks& Marks() const { return marks_; }
    void SetCurrentBox(const std::string& key);  // and selects it alone, unless it is selected
    void SetCurrentLink(const std::string& key);
    void SetFound(std::set<std::string> keys);

    void Renew();  // after the content changed
    void BringIntoView(const std::string& box);

    [[nodiscard]] int Zoom() const { return zoom_; }
    void SetZoom(int percent);  // the middle of what is seen stays there
    void ZoomToFit();
    [[nodiscard]] diagram::Sight Sight() const;
    void Restore(const diagram::Sight& sight);
    void SetBackground(const QColor& colour);
    void SetHint(const QString& whileConnecting) { hint_ = whileConnecting; }

    [[nodiscard]] QPoint PopupPlace() const;

    // Where the box is seen, and its handle, in the viewport's coordinates.
    [[nodiscard]] QRect SeenAt(const std::string& box) const;
    [[nodiscard]] QPoint HandleOf(const std::string& box) const;

  signals:
    void GotFocus();
    void BoxClicked(const std::string& key, Qt::MouseButton button);
    void BoxDoubleClicked(const std::string& key);
    void LinkClicked(const std::string& key, Qt::MouseButton button);
    void BoxesConnected(const std::string& from, const std::string& to);
    void BackgroundClicked(Qt::MouseButton button);
    void MousePressed(Qt::MouseButton button);
    void KeyReleased(int key, Qt::KeyboardModifiers modifiers);
    void ZoomChanged(int percent);
    void Arranged();                  // boxes were moved
    void Typed(const QString& text);  // what is no command
    void FindWanted();
    void FindNextWanted(bool backwards);
    void UndoWanted();

  protected:
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& area) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    // What the mouse does while a button is down.
    enum class Doing { Nothing, Pressing, Dragging, Framing, Panning, Connecting };

    // Pointing.
    [[nodiscard]] diagram::Point PointAt(const QPoint& place) const;
    [[nodiscard]] std::string BoxAt(const QPoint& place) const;
    [[nodiscard]] std::string LinkAt(const QPoint& place) const;
    [[nodiscard]] std::string HandleAt(const QPoint& place) const;  // the box that it belongs to
    void PressLeft(const QPoint& place, bool adds);
    void PressBox(const std::string& key, bool adds);
    void StartMoving(const QPoint& place);
    void Drag(const QPoint& place);
    void Frame(const QPoint& place);
    void Pan(const QPoint& place);
    void PointAtTarget(const QPoint& place);
    void Hover(const QPoint& place);
    void Release(Qt::MouseButton button, const QPoint& place);
    [[nodiscard]] bool HasMoved(const QPoint& place) const;  // since the press, enough for a drag
    void ClickHandle(Qt::MouseButton button);
    void Click(Qt::MouseButton button, const QPoint& place);
    void FinishMoving();
    void CancelMouse();
    void SetPointer();

    // Connecting.
    void StartConnecting(const std::string& from);
    void Target(const std::string& key);
    void FinishConnecting(bool connects);

    // Keys.
    bool PressCommand(int key, Qt::KeyboardModifiers modifiers);
    bool PressArrow(int key, Qt::KeyboardModifiers modifiers);
    bool PressEnter();
    bool PressEscape();
    void Walk(int key);
    void WalkLinks(int key);
    void Nudge(int key);
    void SelectAll();

    // Painting.
    void PaintNewLink(QPainter& painter) const;
    void PaintHandle(QPainter& painter) const;
    void ShowToolTip(const QPoint& place, const QPoint& onScreen);
    void FitScene();
    void ZoomAround(QPoint place, int percent);  // which stays where it is
    void ZoomBy(double factor, QPoint around);
    void ZoomBy(double factor) { ZoomBy(factor, viewport()->rect().center()); }

    diagram::Content& content_;
    DiagramMarks marks_;
    QGraphicsScene* scene_;
    QRubberBand* frame_;
    QColor background_;  // invalid for the palette's
    QString hint_;
    QRegion exposed_;  // what is to be painted, in the viewport's coordinates
    int zoom_ = 100;
    double zoomRest_ = 0;  // of pinching and wheels finer than a percent
    Doing doing_ = Doing::Nothing;
    bool spaceIsDown_ = false;
    bool isFirst_ = true;  // nothing was shown yet
    QPoint pressedAt_;
    diagram::Point draggedTo_;  // in units, against the beginning of the drag
    std::string hovered_;
    std::optional<std::string> connecting_;  // the box that the new link starts from
    QPoint newLinkEnd_;
    bool popupAtPointer_ = false;
};

}  // namespace tessel
