#pragma once

#include "ui/controls/pane_title.h"

namespace tessel {

// A pane on screen: its title bar and below it its control.
class PaneFrame : public QWidget {
  public:
    PaneFrame(const text::Texts& texts, const QString& name, QWidget* control, QWidget* parent);

    [[nodiscard]] PaneTitle& Title() const { return *title_; }
    [[nodiscard]] QWidget& Control() const { return *control_; }

    void Show(const PaneTitle::State& state);

    // Moves the focus to where it last was in the control, at first to the control itself or the first thing
    // in it that takes the focus; nothing when the focus is in the control.
    void FocusControl();

  private:
    [[nodiscard]] bool TakesFocus(const QWidget* widget) const;
    [[nodiscard]] QWidget* FocusTarget() const;  // nullptr when nothing takes the focus

    PaneTitle* title_;
    QWidget* control_;
};

}  // namespace tessel
