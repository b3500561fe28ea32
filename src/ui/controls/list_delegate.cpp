#include "ui/controls/list_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTimer>
#include <QToolTip>

#include "ui/controls/connect.h"

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

// A message box that a refusal shows would make the editor, which loses the focus to it, hand over its text a
// second time; so the text is used when the editor has gone.
void ListDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const QString text = qobject_cast<QLineEdit*>(editor)->text();
    if (!rename_ || text == index.data(Qt::EditRole).toString()) return;
    auto* view = qobject_cast<QAbstractItemView*>(parent());
    const auto apply = [view, rename = rename_(index, text), item = QPersistentModelIndex(index)] {
        if (rename() || !item.isValid()) return;
        view->setCurrentIndex(item);
        view->edit(item);
    };
    QTimer::singleShot(0, view, [apply] { Guard(apply); });
}

}  // namespace tessel
