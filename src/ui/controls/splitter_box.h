#pragma once

#include <QSplitter>

namespace tessel {

// Two parts of the pane host with a border between them, which the user can move.
class SplitterBox : public QSplitter {
    Q_OBJECT

  public:
    // `share` is the first part's, above 0 and below 1.
    SplitterBox(Qt::Orientation orientation, double share, QWidget* first, QWidget* second);

    // Sizes the parts by the share, for the box's size and for the parts that are not hidden.
    void Arrange();

  Q_SIGNALS:
    void ShareChanged(double share);  // once for each of the user's moves

  protected:
    QSplitterHandle* createHandle() override;

  private:
    class Handle;

    void TakeShare();  // from the parts' present sizes
    void Release();
    void Even();

    double share_;
    bool isMoved_ = false;
};

}  // namespace tessel
