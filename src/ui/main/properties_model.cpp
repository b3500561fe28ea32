#include "ui/main/properties_model.h"

#include <QGuiApplication>
#include <QPalette>

namespace tessel {

namespace {

constexpr int nameColumn = 0;

QString TextIn(const PropertyRow& row, int column) {
    if (column == nameColumn) return QString::fromStdString(row.text);
    // The headers may already be another tab's.
    const auto place = static_cast<std::size_t>(column - 1);
    return place < row.subItems.size() ? QString::fromStdString(row.subItems[place]) : QString();
}

}  // namespace

PropertiesModel::PropertiesModel(PropertiesList& list)
    : list_(list), images_(BrowserImages()), blank_(BlankIcon()) {
    list_.Watch([this](const RowsChange& change, const auto& apply) { Follow(change, apply); });
}

PropertiesModel::~PropertiesModel() { list_.Watch(nullptr); }

int PropertiesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.Rows().size());
}

int PropertiesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(InfoOf(list_.Tab()).headers.size());
}

QVariant PropertiesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto place = static_cast<std::size_t>(index.row());
    const PropertyRow& row = list_.Rows()[place];
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return TextIn(row, index.column());
        case Qt::DecorationRole:
            if (index.column() != nameColumn) return {};
            return row.icon.empty() ? blank_ : images_.Icon(QString::fromStdString(row.icon));
        case Qt::ForegroundRole:
            if (!list_.IsDimmed(place)) return {};
            return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        default:
            return {};
    }
}

QVariant PropertiesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return QString::fromStdString(list_.Headers().at(static_cast<std::size_t>(section)));
}

Qt::ItemFlags PropertiesModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == nameColumn ? flags | Qt::ItemIsEditable : flags;
}

}  // namespace tessel
