#include "ui/dialogs/column_model.h"

#include <QFont>
#include <algorithm>

namespace tessel {

namespace {

bool IsSameColumn(const ColumnItem& one, const ColumnItem& other) { return one.columnID == other.columnID; }

}  // namespace

void ColumnModel::SetHeaders(const QStringList& headers) {
    beginResetModel();
    headers_ = headers;
    endResetModel();
}

bool ColumnModel::HasColumnsOf(const std::vector<ColumnItem>& items) const {
    return std::ranges::equal(items_, items, IsSameColumn);
}

// Only the rows that differ go and come, so that a view stays scrolled as it is.
void ColumnModel::SetItems(std::vector<ColumnItem> items) {
    const auto [oldRow, newRow] = std::ranges::mismatch(items_, items, IsSameColumn);
    const auto tail = std::mismatch(items_.rbegin(), std::make_reverse_iterator(oldRow), items.rbegin(),
                                    std::make_reverse_iterator(newRow), IsSameColumn);
    const int first = static_cast<int>(oldRow - items_.begin());
    const int oldEnd = static_cast<int>(tail.first.base() - items_.begin());
    const int newEnd = static_cast<int>(tail.second.base() - items.begin());
    if (oldEnd > first) {
        beginRemoveRows({}, first, oldEnd - 1);
        items_.erase(oldRow, tail.first.base());
        endRemoveRows();
    }
    if (newEnd > first) {
        beginInsertRows({}, first, newEnd - 1);
        items_.insert(items_.begin() + first, newRow, tail.second.base());
        endInsertRows();
    }
    items_ = std::move(items);
    if (!items_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int ColumnModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(items_.size());
}

int ColumnModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headers_.size());
}

QVariant ColumnModel::data(const QModelIndex& index, int role) const {
    static const QIcon blank = BlankIcon();
    if (!index.isValid()) return {};
    const ColumnItem& item = items_[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole) return item.texts.value(index.column());
    if (index.column() != 0) return {};
    if (role == Qt::DecorationRole) return item.icon.isEmpty() ? blank : icons_.Icon(item.icon);
    if (role == Qt::ForegroundRole && item.isRed) return red_;
    if (role != Qt::FontRole || !item.isBold) return {};
    QFont bold;
    bold.setBold(true);
    return bold;
}

QVariant ColumnModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return headers_.value(section);
}

}  // namespace tessel
