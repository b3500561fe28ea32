#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QToolBar>

namespace tessel {

// The bar below the menus: the toolbar, and while something lasts what it is and how far it has come.
class CoolBar : public QWidget {
  public:
    explicit CoolBar(const QString& progressCaption);

    [[nodiscard]] QToolBar& Toolbar() const { return *tbToolbar_; }

    // Progress from 0 to `total` units, of which there is at least one. A long caption is cut.
    void ShowProgress(const QString& caption, int total);
    void Advance(int length);
    void HideProgress();

  private:
    void SetBandVisible(bool visible);

    QToolBar* tbToolbar_;
    QLabel* lblProgress_;
    QProgressBar* pbProgress_;
};

}  // namespace tessel
