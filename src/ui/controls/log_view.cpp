#include "ui/controls/log_view.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QDateTime>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLocale>
#include <QMenu>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace tessel {

namespace {

constexpr int activityLogText = 565;
constexpr int firstColumnText = 2120;
constexpr int copyText = 2123;
constexpr int undockText = 2124;
constexpr int dockText = 2125;
constexpr int closeText = 2126;

constexpr QSize defaultSize(620, 300);
constexpr const char* section = "Settings";
constexpr const char* geometryKey = "LogWindow";

QString Text(const text::Texts& texts, int number) { return QString::fromStdString(texts.Text(number)); }

QString LocalTime(DateTime when) {
    const auto time = QDateTime::fromSecsSinceEpoch(when.seconds, Qt::UTC);
    return QLocale::system().toString(time, QLocale::ShortFormat);
}

}  // namespace

void LogModel::Refresh() {
    const int now = static_cast<int>(log_.Activities().size());
    if (now <= rows_) return;
    beginInsertRows({}, rows_, now - 1);
    rows_ = now;
    endInsertRows();
}

int LogModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int LogModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Result + 1; }

QVariant LogModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole) return {};
    const host::Activity& activity = log_.Activities()[static_cast<std::size_t>(index.row())];
    if (index.column() == Time) return LocalTime(activity.when);
    return QString::fromStdString(index.column() == Action ? activity.action : activity.result);
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return Text(texts_, firstColumnText + section);
}

LogView::LogView(host::ActivityLog& log, const text::Texts& texts, QWidget* parent)
    : ListView("lvLog", parent), log_(log), texts_(texts), model_(log, texts) {
    setAccessibleName(Text(texts_, activityLogText));
    setSelectionMode(ExtendedSelection);
    setModel(&model_);
    OnKey(Qt::Key_F1, [this] { emit HelpWanted(); });
    OnKey(Qt::CTRL | Qt::Key_C, [this] { Copy(); });
    connect(this, &ListView::PopupWanted, this, &LogView::PopUp);
    FollowNewest();
}

void LogView::FollowNewest() {
    const QScrollBar* bar = verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar] { followsNewest_ = bar->value() == bar->maximum(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this] {
        if (followsNewest_) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    });
}

void LogView::showEvent(QShowEvent* event) {
    ListView::showEvent(event);
    FitColumns();
}

void LogView::resizeEvent(QResizeEvent* event) {
    ListView::resizeEvent(event);
    FitColumns();
}

void LogView::FitColumns() {
    if (isFitted_ || !isVisible()) return;
    const QString widest = LocalTime(*ParseIso("2028-12-28T20:58:58"));
    const int air = fontMetrics().averageCharWidth() * 4;
    setColumnWidth(LogModel::Time, fontMetrics().horizontalAdvance(widest) + air);
    const int rest = viewport()->width() - columnWidth(LogModel::Time);
    isFitted_ = rest > columnWidth(LogModel::Time);
    setColumnWidth(LogModel::Action, std::max(rest * 2 / 3, header()->minimumSectionSize()));
}

void LogView::Copy() const {
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QString text;
    for (const auto& row : rows) {
        for (const int column : {LogModel::Time, LogModel::Action, LogModel::Result})
            text +=
                row.siblingAtColumn(column).data().toString() + (column == LogModel::Result ? '\n' : '\t');
    }
    if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

void LogView::PopUp(const QPoint& place) {
    auto* menu = new QMenu(this);
    menu->setObjectName("mnuLog");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const char* name, int text, const std::function<void()>& act) {
        QAction* action = menu->addAction(Text(texts_, text), this, act);
        action->setObjectName(name);
        return action;
    };
    QAction* copy = add("mnuLogCopy", copyText, [this] { Copy(); });
    copy->setEnabled(selectionModel()->hasSelection());
    menu->addSeparator();
    const bool isDocked = log_.IsDocked();
    add("mnuLogDock", isDocked ? undockText : dockText, [this, isDocked] { log_.SetDocked(!isDocked); });
    add("mnuLogClose", closeText, [this] { log_.SetVisible(false); });
    menu->popup(place);
}

LogWindow::LogWindow(host::ActivityLog& log, const text::Texts& texts, QWidget* owner)
    : QWidget(owner, Qt::Tool), log_(log), settings_(SettingsPath(texts.Product("Tessel.Name"))) {
    setObjectName("frmLog");
    setWindowTitle(Text(texts, activityLogText));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    resize(defaultSize);
    const std::string stored = settings_.Get(section, geometryKey).value_or("");
    restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(stored)));
}

LogWindow::~LogWindow() {
    if (isVisible()) KeepPlace();
}

void LogWindow::KeepPlace() { settings_.Set(section, geometryKey, saveGeometry().toBase64().toStdString()); }

void LogWindow::Show(LogView& view) {
    if (view.parentWidget() != this) layout()->addWidget(&view);
    view.show();
    show();
}

void LogWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    log_.SetVisible(false);
}

void LogWindow::hideEvent(QHideEvent* event) {
    KeepPlace();
    QWidget::hideEvent(event);
}

}  // namespace tessel
