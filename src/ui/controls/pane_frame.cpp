#include "ui/controls/pane_frame.h"

#include <QVBoxLayout>

namespace tessel {

namespace {

// So much of the control is always seen, in heights of the title bar.
constexpr int smallestHeight = 2;
constexpr int smallestWidth = 4;

}  // namespace

PaneFrame::PaneFrame(const text::Texts& texts, const QString& name, QWidget* control, QWidget* parent)
    : QWidget(parent), title_(new PaneTitle(texts, this)), control_(control) {
    setObjectName("pane" + name);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(title_);
    column->addWidget(control_, 1);
    const int unit = title_->sizeHint().height();
    setMinimumSize(smallestWidth * unit, (1 + smallestHeight) * unit);
}

void PaneFrame::Show(const PaneTitle::State& state) {
    setAccessibleName(state.caption);
    title_->Show(state);
}

void PaneFrame::FocusControl() {
    QWidget* target = FocusTarget();
    if (target && target != window()->focusWidget()) target->setFocus();
}

bool PaneFrame::TakesFocus(const QWidget* widget) const {
    return widget && widget->focusPolicy() != Qt::NoFocus && widget->isEnabledTo(this) &&
           widget->isVisibleTo(this);
}

QWidget* PaneFrame::FocusTarget() const {
    if (TakesFocus(focusWidget())) return focusWidget();
    if (TakesFocus(control_)) return control_;
    for (QWidget* part : control_->findChildren<QWidget*>())
        if (TakesFocus(part)) return part;
    return nullptr;
}

}  // namespace tessel
