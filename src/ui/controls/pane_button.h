#pragma once

#include <QAbstractButton>

namespace tessel {

// A small button of a title bar with a drawn sign, in the foreground role's colour.
class PaneButton : public QAbstractButton {
  public:
    enum class Sign { Maximise, Restore, Close };

    PaneButton(const char* name, Sign sign, QWidget* parent);

    void SetSign(Sign sign, const QString& meaning);  // the meaning is shown as a tooltip

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QRectF SignPlace() const;

    Sign sign_;
};

}  // namespace tessel
