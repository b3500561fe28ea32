#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "ui/controls/image_list.h"

namespace tessel {

// A row of a dialog's list: a column of a table.
struct ColumnItem {
    std::int32_t columnID = -1;
    QStringList texts;  // by header, the column's name first
    QString icon;       // empty for none
    bool isBold = false;
    bool isRed = false;
};

// The rows under the headers. Every row has a place for an icon, so that all texts begin at the same place.
class ColumnModel : public QAbstractTableModel {
  public:
    explicit ColumnModel(QObject* parent) : QAbstractTableModel(parent) {}

    void SetHeaders(const QStringList& headers);

    [[nodiscard]] const std::vector<ColumnItem>& Items() const { return items_; }
    [[nodiscard]] bool HasColumnsOf(const std::vector<ColumnItem>& items) const;  // in the same order
    void SetItems(std::vector<ColumnItem> items);

    // What mismatched rows are written in.
    void SetRed(const QColor& red) { red_ = red; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QStringList headers_;
    std::vector<ColumnItem> items_;
    ImageList icons_ = BrowserImages();
    QColor red_;
};

}  // namespace tessel
