#include "ui/main/browser_model.h"

namespace tessel {

BrowserModel::BrowserModel(BrowserList& list, const text::Texts& texts) : list_(list), texts_(texts) {
    list_.Watch([this](const BrowserChange& change, const auto& apply) { Follow(change, apply); });
}

BrowserModel::~BrowserModel() { list_.Watch(nullptr); }

int BrowserModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.Rows().size());
}

int BrowserModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant BrowserModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) return {};
    const BrowserRow& row = list_.Rows()[static_cast<std::size_t>(index.row())];
    return QString::fromStdString(index.column() == Name ? row.text : row.description);
}

QVariant BrowserModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return QString::fromStdString(texts_.Text(section == Name ? 1001 : 1002));
}

void BrowserModel::Follow(const BrowserChange& change, const std::function<void()>& apply) {
    const int row = static_cast<int>(change.row);
    switch (change.kind) {
        case BrowserChange::Kind::Insert:
            beginInsertRows({}, row, row);
            apply();
            return endInsertRows();
        case BrowserChange::Kind::Remove:
            beginRemoveRows({}, row, row);
            apply();
            return endRemoveRows();
        case BrowserChange::Kind::Move:
            beginMoveRows({}, row, row, {}, static_cast<int>(change.to));
            apply();
            return endMoveRows();
        case BrowserChange::Kind::Renew:
            apply();
            return emit dataChanged(index(row, Name), index(row, Description));
        case BrowserChange::Kind::Reset:
            beginResetModel();
            apply();
            return endResetModel();
    }
}

}  // namespace tessel
