#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <functional>

#include "platform/text/texts.h"

namespace tessel {

// The window's commands: menu items, context menus and toolbar buttons, each under its name ("mnuVerifyAll",
// "tbVerify"), in the places of the menus and the toolbar.
class Commands {
  public:
    // Fills the menu bar and the toolbar, and makes the two context menus, all of them owned by the menu bar.
    Commands(const text::Texts& texts, QMenuBar& menuBar, QToolBar& toolbar);

    [[nodiscard]] QAction& Item(const char* name) const;  // a menu item or a toolbar button
    [[nodiscard]] QMenu& Menu(const char* name) const;

    // Calls `act` when any of the items is chosen, but not while the window takes no input.
    void On(std::initializer_list<const char*> items, const std::function<void()>& act) const;

    // Shows the menu at a place of the screen, with this item in bold.
    void Popup(const char* menu, const QPoint& place, const char* defaultItem = nullptr) const;

  private:
    QMenuBar& menuBar_;
    QToolBar& toolbar_;
};

}  // namespace tessel
