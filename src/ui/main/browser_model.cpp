#include "ui/main/browser_model.h"

namespace tessel {

BrowserModel::BrowserModel(BrowserList& list, const text::Texts& texts)
    : list_(list), texts_(texts), images_(BrowserImages()) {
    list_.Watch([this](const RowsChange& change, const auto& apply) { Follow(change, apply); });
}

BrowserModel::~BrowserModel() { list_.Watch(nullptr); }

int BrowserModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.Rows().size());
}

int BrowserModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant BrowserModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::DecorationRole && index.column() == Name) return images_.Icon("table");
    if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
    const BrowserRow& row = list_.Rows()[static_cast<std::size_t>(index.row())];
    return QString::fromStdString(index.column() == Name ? row.text : row.description);
}

QVariant BrowserModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DecorationRole && section == Name) return images_.Icon("DBSchema");
    if (role != Qt::DisplayRole) return {};
    return QString::fromStdString(texts_.Text(section == Name ? 1001 : 1002));
}

Qt::ItemFlags BrowserModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Name ? flags | Qt::ItemIsEditable : flags;
}

}  // namespace tessel
