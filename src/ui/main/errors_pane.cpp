#include "ui/main/errors_pane.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QPalette>
#include <algorithm>

#include "ui/controls/connect.h"
#include "ui/rules/twips.h"

namespace tessel {

namespace {

constexpr int tableText = 1001;
constexpr int messageText = 2067;

}  // namespace

void ErrorsModel::Show(std::vector<ErrorRow> errors) {
    beginResetModel();
    errors_ = std::move(errors);
    endResetModel();
}

int ErrorsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(errors_.size());
}

int ErrorsModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant ErrorsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const ErrorRow& error = Error(index.row());
    if (role == Qt::DecorationRole && index.column() == Table)
        return images_.Icon(QString::fromStdString(error.icon));
    if (role == Qt::ForegroundRole) return QGuiApplication::palette().brush(QPalette::ToolTipText);
    if (role != Qt::DisplayRole) return {};
    return QString::fromStdString(index.column() == Table ? error.tableName : error.message);
}

QVariant ErrorsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return QString::fromStdString(texts_.Text(section == Table ? tableText : messageText));
}

ErrorsPane::ErrorsPane(const text::Texts& texts)
    : model_(texts), lvErrors_(new ListView("lvErrors", nullptr)) {
    lvErrors_->setModel(&model_);
    lvErrors_->viewport()->setBackgroundRole(QPalette::ToolTipBase);
    const auto choose = [this](const QModelIndex& index) {
        if (index.isValid()) emit ErrorChosen(model_.Error(index.row()));
    };
    Connect(lvErrors_, &ListView::doubleClicked, this, choose);
    lvErrors_->OnKey(Qt::Key_Return, [this, choose] { choose(lvErrors_->currentIndex()); });
}

void ErrorsPane::Show(const std::vector<ErrorRow>& errors) {
    model_.Show(errors);
    lvErrors_->header()->setVisible(!errors.empty());
    lvErrors_->header()->resizeSection(ErrorsModel::Table, WidthOfTables(errors));
}

int ErrorsPane::WidthOfTables(const std::vector<ErrorRow>& errors) const {
    const QFontMetrics metrics(lvErrors_->font());
    int widest = metrics.horizontalAdvance(model_.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString());
    const std::string* last = nullptr;  // the errors of a table stand together
    for (const ErrorRow& error : errors) {
        if (last && *last == error.tableName) continue;
        last = &error.tableName;
        widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(*last)));
    }
    return widest + iconAndMargin / twipsPerPixel;
}

}  // namespace tessel
