#include "ui/main/frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QScreen>
#include <algorithm>

#include "ui/main/list_delegate.h"

namespace tessel {

namespace {

constexpr QSize defaultSize(900, 640);
constexpr const char* section = "Settings";
constexpr const char* geometryKey = "MainWindow";

}  // namespace

frmMain::WaitCursor::WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
frmMain::WaitCursor::~WaitCursor() { QApplication::restoreOverrideCursor(); }

frmMain::frmMain(ComponentState& state)
    : state_(state),
      settings_(SettingsPath(state.Title())),
      model_(tables_, *state.texts),
      lvBrowser_(new QTreeView(this)) {
    setObjectName("frmMain");
    PlaceControls();
    RestoreGeometry();
    SetCaption();
}

void frmMain::PlaceControls() {
    lvBrowser_->setObjectName("lvBrowser");
    lvBrowser_->setRootIsDecorated(false);
    lvBrowser_->setUniformRowHeights(true);
    lvBrowser_->setAllColumnsShowFocus(true);
    lvBrowser_->setItemDelegate(new ListDelegate(lvBrowser_));
    lvBrowser_->setModel(&model_);
    setCentralWidget(lvBrowser_);
}

void frmMain::RestoreGeometry() {
    resize(defaultSize.boundedTo(screen()->availableSize()));
    const std::string stored = settings_.Get(section, geometryKey).value_or("");
    restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(stored)));
}

void frmMain::SetCaption() {
    host::Frontend& frontend = state_.Frontend();
    setWindowTitle(QString::fromStdString(state_.Title() + " - " +
                                          frontend.GetCorvaneName(host::name_item::workspaceName) + " (" +
                                          frontend.GetCorvaneName(host::name_item::projectName) + ") "));
}

void frmMain::Load() {
    state_.sqlTypes.LoadSqlTypes(state_.Database());
    RefreshBrowser();
    lvBrowser_->setCurrentIndex(model_.index(0, 0));
    lvBrowser_->setFocus();
}

void frmMain::DrawTable(const std::string& tableName, std::int32_t tabID, const Value& tag,
                        const Value& comments) {
    tables_.Draw(tableName, tabID, tag, comments);
}

void frmMain::RemoveTable(const std::string& key) { tables_.Remove(key); }

void frmMain::StartProgress(const std::string&, std::int32_t) {
    if (isEnabled()) focusBeforeProgress_ = focusWidget();
    setEnabled(false);
    waitCursor_.emplace();
}

void frmMain::FinishProgress() {
    waitCursor_.reset();
    setEnabled(true);
    if (focusBeforeProgress_) focusBeforeProgress_->setFocus();
}

void frmMain::RefreshBrowser() {
    const std::string selected = SelectedTable();
    tables_.Refresh(state_.Database());
    SelectTable(selected);
}

std::string frmMain::SelectedTable() const {
    const QModelIndex current = lvBrowser_->currentIndex();
    return current.isValid() ? tables_.Rows()[static_cast<std::size_t>(current.row())].key : std::string();
}

void frmMain::SelectTable(std::string_view key) {
    if (const auto row = tables_.Find(key))
        lvBrowser_->setCurrentIndex(model_.index(static_cast<int>(*row), 0));
}

// Room for the names, but never so much that nothing is left for the descriptions, nor so little that the
// next name is cut off.
void frmMain::FitColumns() {
    lvBrowser_->resizeColumnToContents(BrowserModel::Name);
    const int width = lvBrowser_->viewport()->width();
    const int names = lvBrowser_->columnWidth(BrowserModel::Name);
    lvBrowser_->setColumnWidth(BrowserModel::Name, std::clamp(names, width / 4, width / 2));
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous()) FitColumns();
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (!isEnabled()) return event->ignore();
    settings_.Set(section, geometryKey, saveGeometry().toBase64().toStdString());
    event->accept();
}

std::shared_ptr<ToolWindow> LoadMainWindow(ComponentState& state) {
    auto window = std::make_shared<frmMain>(state);
    window->Load();
    return window;
}

}  // namespace tessel
