#pragma once

#include <QStyledItemDelegate>
#include <functional>

namespace tessel {

// The rows of a list: with some air between them, which taller scripts need, and with an item's whole text as
// a tooltip where its column is too narrow for it.
class ListDelegate : public QStyledItemDelegate {
  public:
    // Gives an item a new text; false when that is refused.
    using Rename = std::function<bool(const QModelIndex& item, const QString& text)>;

    using QStyledItemDelegate::QStyledItemDelegate;

    // What a finished edit does. It is called once the editor is closed; an edit that is refused starts
    // again.
    void OnRename(Rename rename) { rename_ = std::move(rename); }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

  private:
    Rename rename_;
};

}  // namespace tessel
