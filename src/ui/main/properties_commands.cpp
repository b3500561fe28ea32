// What the user does to the rows of the properties pane.

#include <QScopedValueRollback>

#include <QApplication>

#include "schema/object_keys.h"
#include "ui/controls/connect.h"
#include "ui/dialogs/frm_column.h"
#include "ui/dialogs/frm_create_key.h"
#include "ui/dialogs/frm_foreign_key.h"
#include "ui/dialogs/frm_index.h"
#include "ui/dialogs/qt_conversions.h"
#include "ui/main/properties_pane.h"

namespace tessel {

void PropertiesPane::AddLocateMenu() {
    auto* menu = new QMenu(&commands_.Menu("mnuPopup"));
    menu->setObjectName("mnuPopupLocate");
    mnuPopupLocateItem_->setObjectName("mnuPopupLocateItem");
    menu->addAction(mnuPopupLocateItem_);
    commands_.Item("mnuPopupLocate").setMenu(menu);
    Connect(mnuPopupLocateItem_, &QAction::triggered, this, &PropertiesPane::Locate);
}

void PropertiesPane::ConnectKeys() {
    const std::pair<QKeyCombination, std::function<void()>> keys[] = {
        {Qt::Key_Insert, [this] { New(); }},
        {Qt::Key_Delete, [this] { Drop(); }},
        {Qt::Key_F2, [this] { Rename(); }},
        {Qt::ALT | Qt::Key_Return, [this] { Properties(); }},
        {Qt::ALT | Qt::Key_Up, [this] { MoveUp(); }},
        {Qt::ALT | Qt::Key_Down, [this] { MoveDown(); }},
        {Qt::CTRL | Qt::Key_X, [this] { list_.Mark(Selected(), ColumnClipboard::Mark::Cut); }},
        {Qt::CTRL | Qt::Key_C, [this] { list_.Mark(Selected(), ColumnClipboard::Mark::Copied); }},
        {Qt::CTRL | Qt::Key_V, [this] { Paste(); }},
    };
    for (const auto& [key, act] : keys) lvProperties_->OnKey(key, act);
}

void PropertiesPane::ConnectCommands() {
    commands_.On({"mnuPopupNew"}, [this] { New(); });
    commands_.On({"mnuPopupDelete"}, [this] { Drop(); });
    commands_.On({"mnuPopupRename"}, [this] { Rename(); });
    commands_.On({"mnuPopupProperties"}, [this] { Properties(); });
    lvProperties_->OnRename([this](const QModelIndex& item, const QString& name) {
        return [this, tab = list_.Tab(), row = list_.Rows()[static_cast<std::size_t>(item.row())],
                name = name.toStdString()] { return list_.Rename(tab, row, name); };
    });
    // Queued, since the list gives up an edit that the first of the clicks began only after this signal.
    Connect(lvProperties_, &ListView::doubleClicked, this, &PropertiesPane::Properties, Qt::QueuedConnection);
    Connect(lvProperties_, &ListView::PopupWanted, this, [this](const QPoint& place) {
        if (list_.ShownTable()) commands_.Popup("mnuPopup", place, "mnuPopupProperties");
    });
}

void PropertiesPane::New() {
    if (!list_.CommandsFor(Selected()).create) return;
    switch (list_.Tab()) {
        case PropertiesTab::Columns:
            return NewColumn();
        case PropertiesTab::Indexes:
            if (const auto key = list_.NewIndex()) Select({*key});
            return;
        case PropertiesTab::Keys: {
            const PropertiesList::Table table = *list_.ShownTable();
            return AddNewKey(table.tabID, table.name, -1);
        }
        case PropertiesTab::ReferencedBy:
            return;
    }
}

void PropertiesPane::NewColumn() {
    const Selection selection = Selected();
    const auto key = list_.NewColumn(selection.empty() ? std::nullopt : std::optional(selection.back()));
    if (!key) return;
    Select({*key});
    EditName(*list_.Find(*key));
}

void PropertiesPane::AddNewKey(std::int32_t tabID, const std::string& name, std::int32_t refTabID) {
    NewKeyDialog rules(state_, name, tabID, refTabID);
    const std::int32_t keyID = frmCreateKey::InputKey(state_, QApplication::activeWindow(), rules);
    if (keyID != -1) emit TableWanted(tabID, InfoOf(PropertiesTab::Keys).key, ForeignKeyKey(keyID));
}

// The rows go one by one, and with each the selection changes.
void PropertiesPane::Drop() {
    {
        const QScopedValueRollback dropping(isDropping_, true);
        list_.Drop(Selected());
    }
    FollowSelection();
}

void PropertiesPane::Rename() {
    const Selection selection = Selected();
    if (list_.CommandsFor(selection).rename) EditName(selection.front());
}

void PropertiesPane::EditName(std::size_t row) {
    lvProperties_->edit(model_.index(static_cast<int>(row), 0));
}

void PropertiesPane::Properties() {
    const Selection selection = Selected();
    if (!list_.CommandsFor(selection).properties) return;
    const std::size_t row = selection.front();
    const QtConversions locale;
    switch (list_.Tab()) {
        case PropertiesTab::Columns:
            return Edit<frmColumn>(list_.OpenColumn(row, locale));
        case PropertiesTab::Indexes:
            return Edit<frmIndex>(list_.OpenIndex(row));
        case PropertiesTab::Keys:
        case PropertiesTab::ReferencedBy:
            return Edit<frmForeignKey>(list_.OpenKey(row));
    }
}

template <typename Dialog, typename Rules>
void PropertiesPane::Edit(std::optional<Rules> rules) {
    if (rules && Dialog::Edit(state_, window(), *rules)) list_.Renew(*rules);
}

void PropertiesPane::Locate() {
    const auto row = Clicked();
    const auto target = row ? list_.Locate(*row) : std::nullopt;
    if (target) emit TableWanted(target->tabID, InfoOf(target->tab).key, target->rowKey);
}

void PropertiesPane::Paste() { Select(list_.Paste()); }

void PropertiesPane::MoveUp() {
    const auto row = Clicked();
    if (row && *row > 0) list_.MoveColumn(*row, *row - 1);
}

// The next row goes before this one.
void PropertiesPane::MoveDown() {
    const auto row = Clicked();
    if (row && *row + 1 < list_.Rows().size()) list_.MoveColumn(*row + 1, *row);
}

}  // namespace tessel
