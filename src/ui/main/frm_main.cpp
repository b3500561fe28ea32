#include "ui/main/frm_main.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QVBoxLayout>

#include "schema/object_keys.h"
#include "ui/controls/connect.h"
#include "ui/controls/help_window.h"
#include "ui/rules/help_contexts.h"
#include "ui/rules/twips.h"

namespace tessel {

namespace {

constexpr int loadingTablesText = 2065;
constexpr int originTitleText = 2066;
constexpr int smallest = 3000 / twipsPerPixel;

}  // namespace

frmMain::frmMain(ComponentState& state)
    : state_(state),
      settings_(SettingsPath(state.Title())),
      coolBar_(new CoolBar(QString::fromStdString(state.texts->Text(loadingTablesText)))),
      commands_(*state.texts, *menuBar(), coolBar_->Toolbar()),
      executeMenu_(commands_, coolBar_->Toolbar()),
      splitter_(new TSplitter(*state.texts)),
      browser_(state, commands_),
      diagram_(state, commands_, browser_),
      properties_(new PropertiesPane(state, commands_)),
      errors_(*state.texts),
      origin_(new CVRLView),
      logPlace_(new QWidget),
      logCV_(state.Frontend().Log()),
      log_(new LogView(*logCV_, *state.texts)) {
    setObjectName("frmMain");
    setMinimumSize(smallest, smallest);
    PlacePanes();
    ConnectCommands();
    ConnectPanes();
    SetCaptions();
    RestoreGeometry();
}

frmMain::~frmMain() {
    if (logCV_) logCV_->Register(nullptr);  // it was never closed
}

void frmMain::PlacePanes() {
    auto* area = new QWidget;
    auto* column = new QVBoxLayout(area);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(coolBar_);
    column->addWidget(splitter_, 1);
    setCentralWidget(area);
    splitter_->setObjectName("Splitter");
    splitter_->AddPane("Browser", &browser_.View());
    splitter_->AddPane("Diagram", &diagram_.View());
    splitter_->AddPane("Properties", properties_);
    splitter_->AddPane("Origin", origin_);
    splitter_->AddPane("Errors", &errors_.View());
    auto* place = new QVBoxLayout(logPlace_);
    place->setContentsMargins(0, 0, 0, 0);
    place->addWidget(log_);
    logPlace_->setFocusProxy(log_);
    splitter_->AddPane("Log", logPlace_);
}

void frmMain::ConnectPanes() {
    Connect(splitter_, &TSplitter::LayoutChanged, this, &frmMain::FollowLayout);
    splitter_->SetCloseHandler([this](const QString& name) {
        if (name == "Log") logCV_->SetVisible(false);
        return name == "Log";
    });
    Connect(&browser_, &BrowserPane::TableSelected, this, &frmMain::ShowTable);
    Connect(&browser_.View(), &ListView::clicked, this, [this] {
        if (const BrowserRow* table = browser_.Selected()) diagram_.ShowBox(table->key);
    });
    Connect(&errors_, &ErrorsPane::ErrorChosen, this, &frmMain::ShowError);
    Connect(properties_, &PropertiesPane::OriginWanted, this, [this](const std::string& tag) {
        if (tag != CVRL()) SetCVRL(tag);
    });
    Connect(properties_, &PropertiesPane::TableWanted, this, &frmMain::ShowRow);
    Connect(&diagram_, &DiagramPane::RowWanted, this,
            [this](std::int32_t tabID, const std::string& keyRow) { ShowRow(tabID, "Keys", keyRow); });
    Connect(&diagram_, &DiagramPane::NewKeyWanted, this, &frmMain::AddNewKey);
    Connect(log_.data(), &LogView::HelpWanted, this,
            [this] { ShowHelp(state_, this, help_context::activityLog); });
}

void frmMain::DrawTable(const std::string& tableName, std::int32_t tabID, const Value& tag,
                        const Value& comments) {
    browser_.Tables().Draw(tableName, tabID, tag, comments);
    diagram_.DrawTable(tableName, tabID, comments);
    properties_->NameTable(tabID, tableName);
}

void frmMain::RemoveTable(const std::string& key) {
    diagram_.View().RemoveBox(key);
    browser_.Tables().Remove(key);
}

void frmMain::AddConnector(const std::string& key, const std::string& fromKey, const std::string& toKey,
                           const std::string& caption) {
    diagram_.View().AddLink(key, fromKey, toKey, caption);
}

void frmMain::SetConnectorText(const std::string& key, const std::string& caption) {
    diagram_.View().SetLinkCaption(key, caption);
}

void frmMain::RemoveConnector(const std::string& key) { diagram_.View().RemoveLink(key); }

void frmMain::AddNewKey(std::int32_t tabID, const std::string& name, std::int32_t refTabID) {
    properties_->AddNewKey(tabID, name, refTabID);
}

void frmMain::StartProgress(const std::string& action, std::int32_t totalLength) {
    coolBar_->ShowProgress(QString::fromStdString(action) + "...", totalLength);
    if (!progress_) {
        progress_ = std::make_unique<Busy>(*this);
        drawing_.emplace(diagram_.View());
    }
    QApplication::processEvents();
}

void frmMain::StartStep(const std::string&) { QApplication::processEvents(); }

void frmMain::FinishStep(std::int32_t length) { coolBar_->Advance(length); }

void frmMain::FinishProgress() {
    coolBar_->HideProgress();
    drawing_.reset();
    progress_.reset();
}

void frmMain::ShowErrors(const std::vector<ErrorRow>& errors, const std::string& title) {
    errors_.Show(errors);
    splitter_->SetCaption("Errors", QString::fromStdString(title));
}

void frmMain::RefreshBrowser() {
    const std::string selected = browser_.Reload();
    diagram_.Refresh();
    browser_.SelectAgain(selected);
}

void frmMain::SetCVRL(const std::string& value) {
    origin_->SetCVRL(value);
    RenewOriginCaption();
}

void frmMain::RenewOriginCaption() {
    splitter_->SetCaption("Origin",
                          QString::fromStdString(state_.texts->Format(originTitleText, {origin_->Title()})));
}

void frmMain::ShowTable() {
    const BrowserRow* table = browser_.Selected();
    for (const char* item : {"mnuStructureDelete", "mnuStructureRename", "mnuStructureProperties"})
        commands_.Item(item).setEnabled(table != nullptr);
    if (!table) SetCVRL("");
    if (table) diagram_.ShowBox(table->key);
    properties_->Show(table);
}

void frmMain::ShowRow(std::int32_t tabID, const char* tab, const std::string& rowKey) {
    const std::string key = TableKey(tabID);
    if (!browser_.Tables().Find(key)) return;
    properties_->Await(tab, rowKey);
    const BrowserRow* shown = browser_.Selected();
    const bool isShown = shown && shown->key == key;
    (void)browser_.Select(key);  // shows it unless it was selected before
    if (isShown) ShowTable();
    if (std::string_view(tab) == "Keys") diagram_.View().SetCurrentLink(rowKey);
}

void frmMain::ShowError(const ErrorRow& error) {
    const bool ofKey = error.keyID > 0;
    ShowRow(error.tblID, ofKey ? "Keys" : "Columns",
            ofKey ? ForeignKeyKey(error.keyID) : ColumnKey(error.columnID));
    splitter_->SetPaneVisible("Properties", true);
    properties_->View().setFocus();
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F1) return QMainWindow::keyPressEvent(event);
    if (splitter_->IsPaneVisible("Log") && splitter_->IsActive("Log"))
        ShowHelp(state_, this, help_context::activityLog);
}

std::shared_ptr<ToolWindow> LoadMainWindow(ComponentState& state) {
    auto window = std::make_shared<frmMain>(state);
    window->Load(window);
    return window;
}

}  // namespace tessel
