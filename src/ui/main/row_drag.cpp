#include "ui/main/row_drag.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <utility>

#include "ui/controls/connect.h"

namespace tessel {

namespace {

constexpr int besidePointer = 12;
constexpr int lineWidth = 2;
constexpr int scrollInterval = 40;  // milliseconds

QLabel* DragLabel(const char* name, QWidget& parent) {
    auto* label = new QLabel(&parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setAutoFillBackground(true);
    label->setBackgroundRole(QPalette::ToolTipBase);
    label->setForegroundRole(QPalette::ToolTipText);
    label->setMargin(2);
    label->hide();
    return label;
}

}  // namespace

RowDrag::RowDrag(QTreeView& list, Rules rules)
    : QObject(&list),
      list_(list),
      rules_(std::move(rules)),
      imgDrag_(DragLabel("imgDrag", list)),
      lblDragEvent_(DragLabel("lblDragEvent", list)),
      target_(new QRubberBand(QRubberBand::Rectangle, &list)),
      landing_(new QWidget(&list)) {
    landing_->setAttribute(Qt::WA_TransparentForMouseEvents);
    landing_->setAutoFillBackground(true);
    landing_->setBackgroundRole(QPalette::Highlight);
    landing_->hide();
    target_->setObjectName("dropTarget");
    scrolling_.setInterval(scrollInterval);
    Connect(&scrolling_, &QTimer::timeout, this, &RowDrag::Scroll);
    Connect(list.model(), &QAbstractItemModel::modelAboutToBeReset, this, &RowDrag::Cancel);
    list.installEventFilter(this);
    list.viewport()->installEventFilter(this);
}

bool RowDrag::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            return watched == list_.viewport() && Press(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseMove:
            return watched == list_.viewport() && Move(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonRelease:
            return watched == list_.viewport() && Release(*static_cast<QMouseEvent*>(event));
        case QEvent::KeyPress:
            return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && Cancel();
        case QEvent::FocusOut:
        case QEvent::Hide:
            Cancel();
            return false;
        default:
            return false;
    }
}

bool RowDrag::Press(const QMouseEvent& event) {
    Cancel();
    if (event.button() != Qt::LeftButton || !rules_.mayDrag()) return false;
    start_ = event.position().toPoint();
    source_ = RowAt(start_);
    return false;
}

// Until it is far enough for a drag, the list must not take the way of the pointer for a selection.
bool RowDrag::Move(const QMouseEvent& event) {
    if (!source_.isValid() || !(event.buttons() & Qt::LeftButton)) return false;
    pointer_ = event.position().toPoint();
    if (!isDragging_ && rules_.starts(pointer_ - start_)) Start();
    if (isDragging_) Follow();
    return true;
}

bool RowDrag::Release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return isDragging_;
    const QModelIndex source = source_;
    const QModelIndex target = RowAt(event.position().toPoint());
    if (!Cancel()) return false;
    if (source.isValid() && target.isValid()) emit Dropped(source.row(), target.row());
    return true;
}

bool RowDrag::Cancel() {
    source_ = QModelIndex();
    scrolling_.stop();
    for (QWidget* shown : std::initializer_list<QWidget*>{imgDrag_, lblDragEvent_, target_, landing_})
        shown->hide();
    return std::exchange(isDragging_, false);
}

void RowDrag::Start() {
    isDragging_ = true;
    const int size = list_.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &list_);
    imgDrag_->setPixmap(source_.data(Qt::DecorationRole).value<QIcon>().pixmap(size));
    imgDrag_->setFixedWidth(size + 2 * imgDrag_->margin());
    lblDragEvent_->setText(source_.data().toString());
    lblDragEvent_->adjustSize();
    imgDrag_->setFixedHeight(lblDragEvent_->height());
    lblDragEvent_->show();
    imgDrag_->show();
}

void RowDrag::Follow() {
    const QPoint viewport = list_.viewport()->pos();
    const QPoint place = viewport + pointer_ + QPoint(besidePointer, besidePointer);
    imgDrag_->move(place);
    lblDragEvent_->move(place + QPoint(imgDrag_->width(), 0));
    const QModelIndex row = RowAt(pointer_);
    const QRect marked(viewport.x(), viewport.y() + list_.visualRect(row).top(), list_.viewport()->width(),
                       list_.visualRect(row).height());
    target_->setGeometry(marked);
    landing_->setGeometry(marked.x(), marked.y() - lineWidth / 2, marked.width(), lineWidth);
    target_->setVisible(row.isValid());
    landing_->setVisible(row.isValid());
    // A rubber band comes to the top when it is shown.
    for (QWidget* above : std::initializer_list<QWidget*>{landing_, imgDrag_, lblDragEvent_}) above->raise();
    if (RowsToScroll() == 0)
        scrolling_.stop();
    else if (!scrolling_.isActive())
        scrolling_.start();
}

void RowDrag::Scroll() {
    QScrollBar& bar = *list_.verticalScrollBar();
    bar.setValue(bar.value() + RowsToScroll());
    Follow();
}

// Wherever in a row the pointer is, also beside its last column.
QModelIndex RowDrag::RowAt(QPoint place) const {
    if (!list_.viewport()->rect().contains(place)) return {};
    return list_.indexAt(QPoint(list_.columnViewportPosition(0), place.y()));
}

int RowDrag::RowsToScroll() const {
    const int row = list_.visualRect(source_).height();
    const int above = row / 2 - pointer_.y();
    const int below = pointer_.y() - (list_.viewport()->height() - row / 2);
    if (row == 0 || (above <= 0 && below <= 0)) return 0;
    return above > 0 ? -(1 + above / row) : 1 + below / row;
}

}  // namespace tessel
