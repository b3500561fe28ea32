#include "ui/main/list_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

namespace tessel {

namespace {

constexpr QSize air(6, 6);

}  // namespace

QSize ListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + air;
}

bool ListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QRect place = view->visualRect(index);
    const bool cutOff = QStyledItemDelegate::sizeHint(option, index).width() > place.width();
    // As a paragraph, a long text is broken into lines.
    const QString tip = cutOff ? "<p>" + index.data().toString().toHtmlEscaped() + "</p>" : QString();
    QToolTip::showText(event->globalPos(), tip, view->viewport(), place);
    return true;
}

}  // namespace tessel
