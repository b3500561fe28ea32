#pragma once

#include <QWidget>

namespace tessel {

// A translucent rectangle over its parent that lets the mouse through.
class DockPreview : public QWidget {
  public:
    explicit DockPreview(QWidget* parent);  // hidden

    void ShowAt(const QRect& place);  // an empty place hides it

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessel
