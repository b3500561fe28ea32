#pragma once

#include <QStyledItemDelegate>
#include <functional>

namespace tessel {

// The rows of a list: with some air between them, which taller scripts need, and with an item's whole text as
// a tooltip where its column is too narrow for it.
class ListDelegate : public QStyledItemDelegate {
  public:
    // Takes a finished edit and answers what then gives the item its new text, or false when that is refused.
    // By then the item may have left the list.
    using Rename = std::function<std::function<bool()>(const QModelIndex& item, const QString& text)>;

    using QStyledItemDelegate::QStyledItemDelegate;

    // What a finished edit does, once the editor is closed. An edit that is refused starts again.
    void OnRename(Rename rename) { rename_ = std::move(rename); }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

  private:
    Rename rename_;
};

}  // namespace tessel
