#include "ui/main/browser_pane.h"

#include <QApplication>
#include <algorithm>

#include "schema/object_keys.h"
#include "ui/controls/connect.h"
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
    Connect(lvBrowser_, &ListView::PopupWanted, this, [&commands](const QPoint& place) {
        commands.Popup("mnuStructure", place, "mnuStructureProperties");
    });
}

void BrowserPane::ConnectList() {
    lvBrowser_->OnKey(Qt::Key_Insert, [this] { New(); });
    lvBrowser_->OnKey(Qt::Key_Delete, [this] { Delete(); });
    lvBrowser_->OnKey(Qt::Key_F2, [this] { Rename(); });
    lvBrowser_->OnKey(Qt::ALT | Qt::Key_Return, [this] { Properties(); });
    lvBrowser_->OnRename([this](const QModelIndex& item, const QString& name) {
        return
            [this, table = tables_.Rows()[static_cast<std::size_t>(item.row())], name = name.toStdString()] {
                return rules_.Rename(IdentifierOf(table.key), table.text, name);
            };
    });
    Connect(lvBrowser_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &BrowserPane::TableSelected);
}

void BrowserPane::ConnectCommands(const Commands& commands) {
    commands.On({"mnuStructureNew", "mnuCreateTable", "tbNewTable"}, [this] { New(); });
    commands.On({"mnuStructureDelete"}, [this] { Delete(); });
    commands.On({"mnuStructureRename"}, [this] { Rename(); });
    commands.On({"mnuStructureProperties"}, [this] { Properties(); });
}

const BrowserRow* BrowserPane::Selected() const {
    const QModelIndexList selected = lvBrowser_->selectionModel()->selectedRows();
    return selected.isEmpty() ? nullptr : &tables_.Rows()[static_cast<std::size_t>(selected.front().row())];
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
    const BrowserRow* table = Selected();
    // The list selects the neighbour of a row that goes, but the user did not choose that table.
    if (table && rules_.Delete(IdentifierOf(table->key), std::string(table->text)))
        lvBrowser_->clearSelection();
}

void BrowserPane::Rename() {
    if (const BrowserRow* table = Selected())
        rules_.AskAndRename(IdentifierOf(table->key), std::string(table->text));
}

void BrowserPane::Properties() {
    const BrowserRow* table = Selected();
    std::string comment;
    // What is written is drawn by then.
    if (table) (void)frmTable::Edit(state_, QApplication::activeWindow(), IdentifierOf(table->key), comment);
}

void BrowserPane::FitColumns() {
    lvBrowser_->resizeColumnToContents(BrowserModel::Name);
    const int width = lvBrowser_->viewport()->width();
    const int names = lvBrowser_->columnWidth(BrowserModel::Name);
    lvBrowser_->setColumnWidth(BrowserModel::Name, std::clamp(names, width / 4, width / 2));
}

}  // namespace tessel
