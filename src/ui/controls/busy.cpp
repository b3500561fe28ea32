#include "ui/controls/busy.h"

#include <QApplication>

namespace tessel {

Busy::Busy(QWidget& window) : window_(window), isOuter_(window.isEnabled()), focus_(window.focusWidget()) {
    if (!isOuter_) return;
    window_.setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

Busy::~Busy() {
    if (!isOuter_) return;
    QApplication::restoreOverrideCursor();
    window_.setEnabled(true);
    if (focus_) focus_->setFocus();
}

UsualPointer::UsualPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }

UsualPointer::~UsualPointer() { QApplication::restoreOverrideCursor(); }

}  // namespace tessel
