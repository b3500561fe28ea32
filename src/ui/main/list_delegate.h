#pragma once

#include <QStyledItemDelegate>

namespace tessel {

// The rows of a list: with some air between them, which taller scripts need, and with an item's whole text as
// a tooltip where its column is too narrow for it.
class ListDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

}  // namespace tessel
