#include "ui/main/browser_pane.h"

#include <algorithm>

#include "schema/object_keys.h"
#include "ui/dialogs/frm_table.h"

namespace tessel {

BrowserPane::BrowserPane(ComponentState& state, const Commands& commands)
    : state_(state),
      rules_(state),
      model_(tables_, *state.texts),
      lvBrowser_(new ListView("lvBrowser", nullptr)) {
    lvBrowser_->setModel(&model_);
    ConnectList();
    ConnectCommands(commands);
    connect(lvBrowser_, &ListView::PopupWanted, this, [&commands](const QPoint& place) {
        commands.Popup("mnuStructure", place, "mnuStructureProperties");
    });
}

void BrowserPane::ConnectList() {
    lvBrowser_->OnKey(Qt::Key_Insert, [this] { New(); });
    lvBrowser_->OnKey(Qt::Key_Delete, [this] { Delete(); });
    lvBrowser_->OnKey(Qt::Key_F2, [this] { Rename(); });
    lvBrowser_->OnKey(Qt::ALT | Qt::Key_Return, [this] { Properties(); });
    lvBrowser_->OnRename(
        [this](const QModelIndex& item, const QString& name) { return RenameInPlace(item, name); });
    connect(lvBrowser_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &BrowserPane::TableSelected);
}

void BrowserPane::ConnectCommands(const Commands& commands) {
    commands.On({"mnuStructureNew", "mnuCreateTable", "tbNewTable"}, [this] { New(); });
    commands.On({"mnuStructureDelete"}, [this] { Delete(); });
    commands.On({"mnuStructureRename"}, [this] { Rename(); });
    commands.On({"mnuStructureProperties"}, [this] { Properties(); });
}

const BrowserRow* BrowserPane::Selected() const {
    const QModelIndex current = lvBrowser_->currentIndex();
    return current.isValid() ? &tables_.Rows()[static_cast<std::size_t>(current.row())] : nullptr;
}

bool BrowserPane::Select(std::string_view key) {
    const auto row = tables_.Find(key);
    if (!row) return false;
    lvBrowser_->setCurrentIndex(model_.index(static_cast<int>(*row), BrowserModel::Name));
    return true;
}

void BrowserPane::SelectFirst() { lvBrowser_->setCurrentIndex(model_.index(0, BrowserModel::Name)); }

std::string BrowserPane::Reload() {
    const BrowserRow* selected = Selected();
    std::string key = selected ? selected->key : std::string();
    tables_.Refresh(state_.Database(), state_.Frontend());
    return key;
}

void BrowserPane::SelectAgain(const std::string& key) {
    if (!Select(key)) emit TableSelected();
}

void BrowserPane::New() {
    if (const auto tabID = rules_.New()) Select(TableKey(*tabID));
}

void BrowserPane::Delete() {
    if (const BrowserRow* table = Selected())
        rules_.Delete(IdentifierOf(table->key), std::string(table->text));
}

void BrowserPane::Rename() {
    if (const BrowserRow* table = Selected())
        rules_.AskAndRename(IdentifierOf(table->key), std::string(table->text));
}

void BrowserPane::Properties() {
    const BrowserRow* table = Selected();
    std::string comment;
    // What is written is drawn by then.
    if (table) (void)frmTable::Edit(state_, lvBrowser_->window(), IdentifierOf(table->key), comment);
}

bool BrowserPane::RenameInPlace(const QModelIndex& item, const QString& name) {
    const BrowserRow table = tables_.Rows()[static_cast<std::size_t>(item.row())];
    return rules_.Rename(IdentifierOf(table.key), table.text, name.toStdString());
}

void BrowserPane::FitColumns() {
    lvBrowser_->resizeColumnToContents(BrowserModel::Name);
    const int width = lvBrowser_->viewport()->width();
    const int names = lvBrowser_->columnWidth(BrowserModel::Name);
    lvBrowser_->setColumnWidth(BrowserModel::Name, std::clamp(names, width / 4, width / 2));
}

}  // namespace tessel
