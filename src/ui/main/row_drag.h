#pragma once

#include <QLabel>
#include <QPersistentModelIndex>
#include <QRubberBand>
#include <QTimer>
#include <QTreeView>
#include <functional>

namespace tessel {

// Lets the user drag a row of a list onto another one, before which it is to land: with the row's text and
// icon at the pointer, the row below the pointer marked, and the list scrolling at its edges. Escape cancels.
class RowDrag : public QObject {
    Q_OBJECT

  public:
    struct Rules {
        std::function<bool()> mayDrag;       // whether the rows can be dragged at all now
        std::function<bool(QPoint)> starts;  // whether the pointer went so far, in pixels, that a drag starts
    };
    // The list, which owns the drag, has its model.
    RowDrag(QTreeView& list, Rules rules);

  signals:
    void Dropped(int row, int target);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool Press(const QMouseEvent& event);
    bool Move(const QMouseEvent& event);
    bool Release(const QMouseEvent& event);
    bool Cancel();  // whether there was a drag
    void Start();
    void Follow();  // the pointer
    void Scroll();
    [[nodiscard]] QModelIndex RowAt(QPoint place) const;
    [[nodiscard]] int RowsToScroll() const;  // up when negative

    QTreeView& list_;
    Rules rules_;
    QLabel* imgDrag_;
    QLabel* lblDragEvent_;
    QRubberBand* target_;  // over the row below the pointer
    QWidget* landing_;     // the line before it
    QTimer scrolling_;
    QPersistentModelIndex source_;
    QPoint start_;  // places are in the list's viewport
    QPoint pointer_;
    bool isDragging_ = false;
};

}  // namespace tessel
