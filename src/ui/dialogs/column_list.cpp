#include "ui/dialogs/column_list.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <algorithm>

#include "ui/controls/connect.h"
#include "ui/rules/list_widths.h"
#include "ui/rules/twips.h"

namespace tessel {

namespace {

constexpr int airBetweenRows = 6;
constexpr int border = 6;       // that FitFirstColumn leaves out
constexpr int rowsAtFirst = 9;  // that there is room for
constexpr const char* tallText = "\u00c5g\u6f22\ud55c";

// Rows as high as the tallest scripts in bold need, also where a row does without.
class RowDelegate : public ListDelegate {
  public:
    using ListDelegate::ListDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem tallest(option);
        initStyleOption(&tallest, index);
        tallest.text = QString::fromUtf8(tallText);
        tallest.font.setBold(true);
        const int height = option.widget->style()
                               ->sizeFromContents(QStyle::CT_ItemViewItem, &tallest, {}, option.widget)
                               .height();
        return {ListDelegate::sizeHint(option, index).width(), height + airBetweenRows};
    }
};

}  // namespace

ColumnList::ColumnList(const char* name) : ListView(name, nullptr), model_(new ColumnModel(this)) {
    setModel(model_);
    setItemDelegate(new RowDelegate(this));
    setVerticalScrollMode(ScrollPerItem);
    header()->setStretchLastSection(false);
    ChooseRed();
}

void ColumnList::SetHeaders(const QStringList& headers) {
    model_->SetHeaders(headers);
    for (int hidden = 1; hidden < headers.size(); ++hidden) setColumnHidden(hidden, true);
}

void ColumnList::Show(std::vector<ColumnItem> items, std::optional<std::size_t> selected) {
    const bool sameColumns = model_->HasColumnsOf(items);
    if (!sameColumns) Select(std::nullopt);
    model_->SetItems(std::move(items));
    Select(selected);
    if (!sameColumns) FitColumns();
}

void ColumnList::FitColumns() {
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    std::vector<std::string> texts;
    for (const auto& item : model_->Items()) texts.push_back(item.texts.value(0).toStdString());
    const int width = FitFirstColumn(
        texts, (viewport()->width() + border) * twipsPerPixel, [&metrics](const std::string& text) {
            return metrics.horizontalAdvance(QString::fromStdString(text)) * twipsPerPixel;
        });
    header()->resizeSection(0, width / twipsPerPixel);
}

QSize ColumnList::sizeHint() const {
    const int row = std::max(sizeHintForRow(0), fontMetrics().height() + airBetweenRows);
    return {ListView::sizeHint().width(),
            header()->sizeHint().height() + rowsAtFirst * row + 2 * frameWidth()};
}

void ColumnList::OnEnter(const std::function<void()>& act) {
    Connect(this, &QTreeView::doubleClicked, this, act);
    OnKey(Qt::Key_Return, act);
}

int ColumnList::RowHeight() const { return rowHeight(model_->index(0, 0)); }

std::size_t ColumnList::FirstVisibleRow() const {
    const QModelIndex first = indexAt(QPoint());
    return first.isValid() ? static_cast<std::size_t>(first.row()) : 0;
}

void ColumnList::changeEvent(QEvent* event) {
    ListView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ChooseRed();
}

void ColumnList::resizeEvent(QResizeEvent* event) {
    ListView::resizeEvent(event);
    FitColumns();
}

void ColumnList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    ListView::selectionChanged(selected, deselected);
    if (Selected() == shown_) return;
    shown_ = Selected();
    if (select_) select_(shown_);
}

std::optional<std::size_t> ColumnList::Selected() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    if (rows.isEmpty()) return std::nullopt;
    return static_cast<std::size_t>(rows.first().row());
}

void ColumnList::Select(std::optional<std::size_t> row) {
    shown_ = row;
    if (Selected() == row) return;
    if (row)
        setCurrentIndex(model_->index(static_cast<int>(*row), 0));
    else
        selectionModel()->clear();
}

void ColumnList::ChooseRed() {
    const bool isDark = palette().color(QPalette::Base).lightness() < 128;
    model_->SetRed(isDark ? QColor(255, 120, 120) : QColor(255, 0, 0));
}

}  // namespace tessel
