#include "ui/controls/splitter_box.h"

#include <utility>

namespace tessel {

namespace {

constexpr int borderWidth = 5;

}  // namespace

class SplitterBox::Handle : public QSplitterHandle {
  public:
    explicit Handle(SplitterBox& box) : QSplitterHandle(box.orientation(), &box), box_(box) {}

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        QSplitterHandle::mouseReleaseEvent(event);
        box_.Release();
    }
    void mouseDoubleClickEvent(QMouseEvent*) override { box_.Even(); }

  private:
    SplitterBox& box_;
};

SplitterBox::SplitterBox(Qt::Orientation orientation, double share, QWidget* first, QWidget* second)
    : QSplitter(orientation), share_(share) {
    setChildrenCollapsible(false);
    setHandleWidth(borderWidth);
    addWidget(first);
    addWidget(second);
    connect(this, &QSplitter::splitterMoved, this, &SplitterBox::TakeShare);
}

QSplitterHandle* SplitterBox::createHandle() { return new Handle(*this); }

void SplitterBox::Arrange() {
    refresh();
    const bool hasFirst = !widget(0)->isHidden();
    const bool hasBoth = hasFirst && !widget(1)->isHidden();
    const int length = orientation() == Qt::Horizontal ? width() : height();
    const int room = length - (hasBoth ? handleWidth() : 0);
    const int first = hasBoth ? qRound(room * share_) : hasFirst ? room : 0;
    setSizes({first, room - first});
}

void SplitterBox::TakeShare() {
    const double first = sizes().at(0);
    const double second = sizes().at(1);
    if (first <= 0 || second <= 0) return;  // a host too small for both
    share_ = first / (first + second);
    isMoved_ = true;
}

void SplitterBox::Release() {
    if (std::exchange(isMoved_, false)) Q_EMIT ShareChanged(share_);
}

void SplitterBox::Even() {
    share_ = 0.5;
    Arrange();
    Q_EMIT ShareChanged(share_);
}

}  // namespace tessel
