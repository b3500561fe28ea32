#include "ui/main/rows_model.h"

namespace tessel {

void RowsModel::Follow(const RowsChange& change, const std::function<void()>& apply) {
    const int row = static_cast<int>(change.row);
    switch (change.kind) {
        case RowsChange::Kind::Insert:
            beginInsertRows({}, row, row);
            apply();
            return endInsertRows();
        case RowsChange::Kind::Remove:
            beginRemoveRows({}, row, row);
            apply();
            return endRemoveRows();
        case RowsChange::Kind::Move:
            beginMoveRows({}, row, row, {}, static_cast<int>(change.to));
            apply();
            return endMoveRows();
        case RowsChange::Kind::Renew:
            apply();
            return emit dataChanged(index(row, 0), index(row, columnCount() - 1));
        case RowsChange::Kind::Reset:
            beginResetModel();
            apply();
            return endResetModel();
    }
}

}  // namespace tessel
