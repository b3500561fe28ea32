#pragma once

#include <QMenu>
#include <functional>

#include "platform/text/texts.h"
#include "ui/controls/pane_commands.h"

namespace tessel {

// The menu "mnuPane" of a pane's title, for the layout as it is when the menu is made. What its items are
// named after ends in the name of the pane that they speak of: "mnuPaneLeftOfBrowser".
class PaneMenu : public QMenu {
  public:
    // `commands` outlives the menu.
    PaneMenu(const text::Texts& texts, const PaneLayout& layout, const QString& name, PaneCommands& commands,
             QWidget* parent);

  private:
    QString Text(int number) const;
    QAction* AddItem(QMenu& menu, const QString& itemName, const QString& caption, std::function<void()> run);
    void AddWindowItems(bool isMaximised);
    void AddMoves();
    void AddMove(const char* itemName, int text, PaneEdge edge);
    void AddSwap();
    void AddSizes(const PaneLayout& layout);
    QMenu* AddSubmenu(const char* itemName, int text);

    const text::Texts& texts_;
    PaneCommands& commands_;
    QString name_;
    QList<std::pair<QString, QString>> others_;  // names and captions of the other visible panes, in order
};

}  // namespace tessel
