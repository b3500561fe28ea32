#include "ui/main/properties_pane.h"

#include <QEvent>
#include <QHeaderView>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/text/utf8.h"
#include "schema/object_keys.h"
#include "ui/controls/connect.h"
#include "ui/main/row_drag.h"
#include "ui/rules/twips.h"

namespace tessel {

namespace {

constexpr int captionText = 562;
constexpr float dimmed = 0.65F;

constexpr PropertiesTab tabs[] = {PropertiesTab::Columns, PropertiesTab::Indexes, PropertiesTab::Keys,
                                  PropertiesTab::ReferencedBy};

// Dimmed rows are dimmed also while they are selected.
class DimmingView : public ListView {
  public:
    using ListView::ListView;

  protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        if (index.data(Qt::ForegroundRole).isValid()) {
            QColor colour = row.palette.color(QPalette::HighlightedText);
            colour.setAlphaF(dimmed);
            row.palette.setColor(QPalette::HighlightedText, colour);
        }
        ListView::drawRow(painter, row, index);
    }
};

}  // namespace

PropertiesPane::PropertiesPane(ComponentState& state, const Commands& commands)
    : state_(state),
      commands_(commands),
      list_(state),
      model_(list_),
      tsProperties_(new QTabBar),
      lvProperties_(new DimmingView("lvProperties", this)),
      mnuPopupLocateItem_(new QAction(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(tsProperties_);
    column->addWidget(lvProperties_);
    setFocusProxy(lvProperties_);
    AddTabs();
    AddLocateMenu();
    ConnectList();
    ConnectKeys();
    ConnectCommands();
    FitColumns();
    FollowSelection();
}

void PropertiesPane::AddTabs() {
    tsProperties_->setObjectName("tsProperties");
    tsProperties_->setAccessibleName(QString::fromStdString(state_.texts->Text(captionText)));
    tsProperties_->installEventFilter(this);
    for (const PropertiesTab tab : tabs) {
        const PropertiesTabInfo& info = InfoOf(tab);
        const QString caption = QString::fromStdString(state_.texts->Text(info.caption));
        tsProperties_->setTabData(tsProperties_->addTab(caption), info.key);
    }
    Connect(tsProperties_, &QTabBar::currentChanged, this, [this](int tab) { list_.ChangeTab(tabs[tab]); });
}

void PropertiesPane::ConnectList() {
    lvProperties_->setAccessibleName(tsProperties_->accessibleName());
    lvProperties_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvProperties_->header()->setStretchLastSection(false);
    lvProperties_->setModel(&model_);
    const auto follow = [this] { FollowSelection(); };
    Connect(lvProperties_->selectionModel(), &QItemSelectionModel::selectionChanged, this, follow);
    Connect(lvProperties_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, follow);
    Connect(&model_, &QAbstractItemModel::modelReset, this, [this] {
        FitColumns();
        FollowSelection();
    });
    Connect(&model_, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { WidenColumns(first, last); });
    Connect(
        &model_, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& first, const QModelIndex& last) { WidenColumns(first.row(), last.row()); });
    const auto* drag = new RowDrag(
        *lvProperties_, {.mayDrag = [this] { return list_.Tab() == PropertiesTab::Columns; },
                         .starts =
                             [this](QPoint way) {
                                 return list_.StartsDrag(way.x() * twipsPerPixel, way.y() * twipsPerPixel);
                             }});
    Connect(drag, &RowDrag::Dropped, this, [this](int row, int target) {
        list_.MoveColumn(static_cast<std::size_t>(row), static_cast<std::size_t>(target));
    });
}

// A change of the tab by other means than the user's does not fill the list.
bool PropertiesPane::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::Wheel)
        list_.MarkUserTabChange();
    return QWidget::eventFilter(watched, event);
}

void PropertiesPane::Show(const BrowserRow* table) {
    std::string key = std::exchange(awaitedRow_, {});
    const auto clicked = Clicked();
    if (key.empty() && clicked) key = list_.Rows()[*clicked].key;
    list_.Fill(table ? std::optional(PropertiesList::Table{IdentifierOf(table->key), table->text})
                     : std::nullopt);
    Select({key});
}

void PropertiesPane::Await(const char* tab, const std::string& rowKey) {
    for (int index = 0; index < tsProperties_->count(); ++index)
        if (tsProperties_->tabData(index) == tab) tsProperties_->setCurrentIndex(index);
    awaitedRow_ = rowKey;
}

PropertiesPane::Selection PropertiesPane::Selected() const {
    Selection rows;
    for (const QModelIndex& index : lvProperties_->selectionModel()->selectedRows())
        rows.push_back(static_cast<std::size_t>(index.row()));
    std::ranges::sort(rows);
    return rows;
}

std::optional<std::size_t> PropertiesPane::Clicked() const {
    const QModelIndex current = lvProperties_->currentIndex();
    if (!lvProperties_->selectionModel()->isSelected(current)) return std::nullopt;
    return static_cast<std::size_t>(current.row());
}

void PropertiesPane::Select(const std::vector<std::string>& keys) {
    QItemSelection rows;
    for (const std::string& key : keys)
        if (const auto row = list_.Find(key)) {
            const QModelIndex index = model_.index(static_cast<int>(*row), 0);
            rows.select(index, index);
        }
    if (rows.isEmpty()) return;
    QItemSelectionModel& selection = *lvProperties_->selectionModel();
    selection.select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    selection.setCurrentIndex(rows.last().topLeft(), QItemSelectionModel::NoUpdate);
    lvProperties_->scrollTo(rows.last().topLeft());
}

void PropertiesPane::FollowSelection() {
    if (isDropping_) return;
    const auto admitted = list_.CommandsFor(Selected());
    commands_.Item("mnuPopupNew").setEnabled(admitted.create);
    commands_.Item("mnuPopupDelete").setEnabled(admitted.drop);
    commands_.Item("mnuPopupRename").setEnabled(admitted.rename);
    commands_.Item("mnuPopupProperties").setEnabled(admitted.properties);
    // A click on one of several selected rows selects it alone.
    lvProperties_->setEditTriggers(admitted.rename ? QAbstractItemView::SelectedClicked
                                                   : QAbstractItemView::NoEditTriggers);
    const auto clicked = Clicked();
    const auto item = list_.LocateItemFor(clicked);
    mnuPopupLocateItem_->setText(QString::fromStdString(item.text));
    mnuPopupLocateItem_->setEnabled(item.isEnabled);
    commands_.Item("mnuPopupLocate").setEnabled(item.isEnabled);
    if (clicked) emit OriginWanted(std::string(text::Trim(list_.Rows()[*clicked].tag)));
}

void PropertiesPane::FitColumns() {
    for (int column = 0; const int width : FittingWidths(list_.Rows()))
        lvProperties_->header()->resizeSection(column++, width);
}

// A column that the user made wider stays so.
void PropertiesPane::WidenColumns(int first, int last) {
    QHeaderView& header = *lvProperties_->header();
    const auto begin = list_.Rows().begin();
    for (int column = 0; const int width : FittingWidths({begin + first, begin + last + 1})) {
        header.resizeSection(column, std::max(width, header.sectionSize(column)));
        ++column;
    }
}

// The pixel that a fraction of it needs counts as a whole one.
std::vector<int> PropertiesPane::FittingWidths(std::span<const PropertyRow> rows) const {
    const QFontMetricsF metrics(lvProperties_->font());
    auto widths = list_.ColumnWidths(rows, [&](const std::string& text) {
        return twipsPerPixel *
               static_cast<int>(std::ceil(metrics.horizontalAdvance(QString::fromStdString(text))));
    });
    for (int& width : widths) width /= twipsPerPixel;
    return widths;
}

}  // namespace tessel
