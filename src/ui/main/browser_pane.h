#pragma once

#include <QObject>

#include "schema/component_state.h"
#include "ui/controls/list_view.h"
#include "ui/main/browser_model.h"
#include "ui/main/commands.h"
#include "ui/rules/table_commands.h"

namespace tessel {

// The pane Browser: the list of tables lvBrowser and the commands on its selected table.
class BrowserPane : public QObject {
    Q_OBJECT

  public:
    // Connects the commands of the Tables menu. State and commands outlive the pane.
    BrowserPane(ComponentState& state, const Commands& commands);

    [[nodiscard]] ListView& View() const { return *lvBrowser_; }
    [[nodiscard]] BrowserModel& Model() { return model_; }
    [[nodiscard]] BrowserList& Tables() { return tables_; }

    [[nodiscard]] const BrowserRow* Selected() const;  // none while no table is selected

    // Selects the table with this key and brings it into view; false, with the selection as it was, when it
    // is not listed.
    bool Select(std::string_view key);
    void SelectFirst();

    // Lists the tables anew, none of them selected. Returns the key of the one that was, which SelectAgain
    // selects if it is still there.
    [[nodiscard]] std::string Reload();
    void SelectAgain(const std::string& key);

    void New();
    void Delete();
    void Rename();
    void Properties();

    // Room for the names, but never so much that nothing is left for the descriptions, nor so little that the
    // next name is cut off.
    void FitColumns();

  signals:
    // Another table, or none, is selected, or the selected one was listed anew.
    void TableSelected();

  private:
    void ConnectList();
    void ConnectCommands(const Commands& commands);

    ComponentState& state_;
    TableCommands rules_;
    BrowserList tables_;
    BrowserModel model_;
    ListView* lvBrowser_;
};

}  // namespace tessel
