#pragma once

#include <QImage>
#include <QPointF>
#include <QVariantList>
#include <QWidget>
#include <string>
#include <vector>

#include "platform/diagram/content.h"
#include "platform/text/texts.h"

class QAction;
class QIcon;
class QPainter;
class QToolBar;

namespace tessel {

class DiagramSearch;
class DiagramView;

// The entity diagram: boxes joined by links with an arrow head at their end, under a toolbar of its own.
//
// Boxes and links are known by their keys, and a key that is not there is passed over. Places and sizes are
// in units, which grow to the right and downwards; at the zoom 100 a unit is 4 pixels, and two units are as
// wide as a character of a caption. A box is drawn from its place on and at least so wide that its caption
// fits.
//
// The user selects and drags boxes, draws a frame around several, walks them with the arrow keys and their
// links with Alt and the arrow keys, zooms with Ctrl and the wheel or + - 0 9 (9 shows all), undoes a
// placement with Ctrl+Z, and connects two boxes by the handle at a box, or by Ctrl+K, the arrow keys and
// Enter.
class TDiagram : public QWidget {
    Q_OBJECT
    // Lists of maps: key, caption, comment, x, y, width, height; and key, caption, from, to.
    Q_PROPERTY(QVariantList boxes READ Boxes)
    Q_PROPERTY(QVariantList links READ Links)
    Q_PROPERTY(int zoom READ Zoom WRITE SetZoom NOTIFY ZoomChanged)
    Q_PROPERTY(bool quickSearch READ QuickSearch WRITE SetQuickSearch NOTIFY QuickSearchChanged)

  public:
    explicit TDiagram(const text::Texts& texts, QWidget* parent = nullptr);  // the texts outlive it
    ~TDiagram() override;

    // Takes all boxes and links away. What the user arranged since the last load or save is remembered until
    // the next load.
    void Clear();

    // A box that comes under the caption of one that is there or was removed stands where that does or did,
    // any other at the place. Nothing when the key is there.
    void AddBox(const std::string& key, const std::string& caption, QPointF place);
    void RemoveBox(const std::string& key);  // and its links
    void SetBoxCaption(const std::string& key, const std::string& caption);
    void SetBoxWidth(const std::string& key, double units);
    void SetBoxColour(const std::string& key, QRgb colour);  // its accent; the text stays legible
    void SetBoxComment(const std::string& key, const std::string& comment);
    [[nodiscard]] bool HasBox(const std::string& key) const;
    [[nodiscard]] std::size_t BoxCount() const;
    [[nodiscard]] std::vector<std::string> BoxKeys() const;  // in the order in which they came
    [[nodiscard]] std::string BoxCaption(const std::string& key) const;

    // Nothing when a box is missing; a key that is there is given the new caption and boxes.
    void AddLink(const std::string& key, const std::string& from, const std::string& to,
                 const std::string& caption);
    void RemoveLink(const std::string& key);
    void SetLinkCaption(const std::string& key, const std::string& caption);
    [[nodiscard]] bool HasLink(const std::string& key) const;
    [[nodiscard]] std::vector<std::string> LinkKeys() const;
    [[nodiscard]] std::string LinkFrom(const std::string& key) const;  // a box; empty for no such link

    [[nodiscard]] QVariantList Boxes() const;
    [[nodiscard]] QVariantList Links() const;

    // Between the two no new line is drawn, no Changed is sent and no box brought into view; Resume then does
    // all that once, and only the last box that was to be brought into view is. What is painted meanwhile
    // lacks the links of boxes that changed. Pairs may nest.
    void SuspendDrawing();
    void ResumeDrawing();

    // The current box, which is selected; empty for none. Setting it tells nobody, and scrolls nothing.
    [[nodiscard]] std::string CurrentBox() const;
    void SetCurrentBox(const std::string& key);
    [[nodiscard]] std::string CurrentLink() const;
    void SetCurrentLink(const std::string& key);
    void BringIntoView(const std::string& box);

    // In percent, held between 10 and 1000; the middle of the view stays where it is.
    [[nodiscard]] int Zoom() const;
    void SetZoom(int percent);
    void ZoomToFit();  // shows everything, at 100 at most

    // The line in which the user types what to find among the captions and comments.
    [[nodiscard]] bool QuickSearch() const;
    void SetQuickSearch(bool on);

    void SetBackground(const QColor& colour);  // an invalid one is the palette's behind lists and texts

    // A button at the end of the toolbar; its action is named "dg" and the key. A key that is there is
    // renewed.
    void AddButton(const std::string& key, const QIcon& picture, const std::string& tooltip);
    void SetButtonEnabled(const std::string& key, bool enabled);

    // Takes what the file holds into the diagram, which was emptied before. The first load of the control
    // also brings back the zoom and the part that was seen. False, with the diagram still empty, when there
    // is no such file or it cannot be read. A damaged file is kept aside as NAME.damaged-1.xml, or the next
    // free number. Nothing throws.
    bool LoadFile(const std::string& path);
    // Throws ErrorKind::File, Full or ReadOnly; the file is the old or the new one in any case. What the file
    // holds beyond the diagram stays in it.
    void SaveFile(const std::string& path);
    // Whether a box moved by the user's hand, or was placed, since the last load or save.
    [[nodiscard]] bool IsArranged() const;

    // Arranges all boxes; UndoPlacement puts them back where they stood before. `keepOn` is asked about 20
    // times a second whether to go on, and may process events; false leaves everything as it is, and is
    // returned.
    bool Place(const diagram::KeepOn& keepOn = {});
    [[nodiscard]] bool CanUndoPlacement() const;
    void UndoPlacement();

    // Pictures are in light colours whatever the palette, without selection and marks.
    [[nodiscard]] QRectF BoundingRect() const;  // of all that is drawn, in units
    // Paints this part of the diagram, in units, over the target, in the painter's coordinates.
    void PaintPage(QPainter& painter, const QRectF& target, const QRectF& part) const;
    [[nodiscard]] QImage Picture(double pixelsPerUnit) const;              // everything, with a margin
    [[nodiscard]] std::string SvgPicture(const std::string& title) const;  // a file of its own
    [[nodiscard]] const diagram::Diagram& Drawing() const;

    // Where a popup menu belongs, on the screen: at the pointer when a mouse button asked for it, else at the
    // current box or in the middle of the view.
    [[nodiscard]] QPoint PopupPlace() const;

    // Where the box is seen, and the handle from which the user drags a new link, in the coordinates of the
    // child DiagramView's viewport.
    [[nodiscard]] QRect SeenAt(const std::string& box) const;
    [[nodiscard]] QPoint HandleOf(const std::string& box) const;

  signals:
    void GotFocus();
    // The user made the box current, by a mouse button, by a drag or, as if with the left button, by a key.
    void BoxClicked(const std::string& key, Qt::MouseButton button);
    void BoxDoubleClicked(const std::string& key);  // or Enter on the current box
    void LinkClicked(const std::string& key, Qt::MouseButton button);
    void BoxesConnected(const std::string& from, const std::string& to);  // may be the same box
    void BackgroundClicked(Qt::MouseButton button);
    void MousePressed(Qt::MouseButton button);  // before any of the above
    void KeyReleased(int key, Qt::KeyboardModifiers modifiers);
    void ButtonClicked(const std::string& key);
    void QuickSearchChanged(bool on);
    void ZoomChanged(int percent);
    void Changed();  // boxes or links came, went, moved or were renamed

  private:
    void ConnectView();
    void ConnectSearch();
    void BringCurrentIntoView();
    void Renew();  // draws what is not drawn yet and repaints, unless drawing is suspended
    [[nodiscard]] QAction* Button(const std::string& key) const;

    diagram::Content content_;
    QToolBar* toolbar_;
    DiagramView* view_;
    DiagramSearch* search_;
    int suspensions_ = 0;
    bool isStale_ = false;  // changed while drawing is suspended
    std::string awaited_;   // the box to bring into view then
    bool hasLoaded_ = false;
};

// While it lives the drawing of the diagram is suspended.
class SuspendedDrawing {
  public:
    explicit SuspendedDrawing(TDiagram& diagram) : diagram_(diagram) { diagram_.SuspendDrawing(); }
    ~SuspendedDrawing() { diagram_.ResumeDrawing(); }
    SuspendedDrawing(const SuspendedDrawing&) = delete;
    SuspendedDrawing& operator=(const SuspendedDrawing&) = delete;

  private:
    TDiagram& diagram_;
};

}  // namespace tessel
