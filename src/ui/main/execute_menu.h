#pragma once

#include <QMenu>
#include <QObject>

#include "runner/add_on_menu.h"
#include "ui/main/commands.h"

namespace tessel {

// The menu Execute, and the list tbExecuteMenu that drops down from the toolbar's button Execute. Until
// add-ons are listed the menu has one disabled item and the button nothing that drops down.
class ExecuteMenu : public QObject {
    Q_OBJECT

  public:
    // Both outlive the menu.
    ExecuteMenu(const Commands& commands, QToolBar& toolbar);

    // Lists these add-ons; done once. Each item bears the position of its entry, from 1, as its data. The
    // first is mnuExecuteItem, the others are mnuExecuteItem_1, mnuExecuteItem_2 and so on.
    void List(AddOnMenu menu);

  signals:
    // The entry's caption is the item's text as it is shown, `title` the same without its mnemonic.
    void Chosen(const AddOnEntry& entry, const QString& title);

  private:
    void AddEntry(const AddOnMenu::Item& item);
    [[nodiscard]] QAction* NewItem(std::size_t entry);

    const Commands& commands_;
    QToolBar& toolbar_;
    QMenu* tbExecuteMenu_;
    AddOnMenu listed_;
};

}  // namespace tessel
