#pragma once

#include <QTabBar>
#include <QWidget>
#include <span>

#include "schema/component_state.h"
#include "ui/controls/list_view.h"
#include "ui/main/commands.h"
#include "ui/main/properties_model.h"
#include "ui/rules/browser_list.h"

namespace tessel {

// The pane Properties: the tab strip tsProperties and below it the list lvProperties of what the selected
// table is made of, with the commands on its rows.
class PropertiesPane : public QWidget {
    Q_OBJECT

  public:
    // Connects the commands of the context menu mnuPopup. State and commands outlive the pane.
    PropertiesPane(ComponentState& state, const Commands& commands);

    [[nodiscard]] ListView& View() const { return *lvProperties_; }

    // Shows the parts of the table on the tab that is chosen, and selects the row that was awaited or, while
    // none was, the one that was selected; a row that is not there selects none. No table empties the list.
    void Show(const BrowserRow* table);
    // Chooses the tab with this key, "Columns", "Indexes", "Keys" or "Referenced By", and has the next Show
    // select the row with this key.
    void Await(const char* tab, const std::string& rowKey);

    // The table has been given this name.
    void NameTable(std::int32_t tabID, const std::string& name) { list_.NameTable(tabID, name); }

    // Lets the user make a foreign key of the table, `refTabID` (-1 for none) being offered as the one that
    // it refers to, and asks for the new key to be shown.
    void AddNewKey(std::int32_t tabID, const std::string& name, std::int32_t refTabID);

  signals:
    // The row with this origin reference, trimmed, was selected.
    void OriginWanted(const std::string& tag);
    // This row of the table is to be shown, on the tab with this key.
    void TableWanted(std::int32_t tabID, const char* tab, const std::string& rowKey);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using Selection = PropertiesList::Selection;

    void AddTabs();
    void AddLocateMenu();
    void ConnectList();
    void ConnectKeys();
    void ConnectCommands();

    [[nodiscard]] Selection Selected() const;
    [[nodiscard]] std::optional<std::size_t> Clicked() const;  // the selected row that was clicked last
    void Select(const std::vector<std::string>& keys);
    void FollowSelection();
    void FitColumns();
    void WidenColumns(int first, int last);                                                 // for these rows
    [[nodiscard]] std::vector<int> FittingWidths(std::span<const PropertyRow> rows) const;  // pixels
    void EditName(std::size_t row);

    void New();
    void NewColumn();
    void Drop();
    void Rename();
    void Properties();
    template <typename Dialog, typename Rules>
    void Edit(std::optional<Rules> rules);
    void Locate();
    void Paste();
    void MoveUp();
    void MoveDown();

    ComponentState& state_;
    const Commands& commands_;
    PropertiesList list_;
    PropertiesModel model_;
    QTabBar* tsProperties_;
    ListView* lvProperties_;
    QAction* mnuPopupLocateItem_;
    std::string awaitedRow_;
    bool isDropping_ = false;
};

}  // namespace tessel
