#pragma once

#include <QObject>

#include "schema/component_state.h"
#include "ui/controls/diagram.h"
#include "ui/main/browser_pane.h"
#include "ui/main/commands.h"

namespace tessel {

// The pane Diagram: a box for each table and a link for each foreign key, and the commands on the diagram.
class DiagramPane : public QObject {
    Q_OBJECT

  public:
    // Connects the commands of the menus Diagram and General. All outlive the pane.
    DiagramPane(ComponentState& state, const Commands& commands, BrowserPane& browser);

    [[nodiscard]] TDiagram& View() const { return *diagram_; }

    // Draws the diagram anew: what the diagram file holds, a box for each table that the browser lists, a
    // link for each foreign key. A file that cannot be read counts as none.
    void Refresh();

    // The same for the boxes and links that have come, changed or gone; the others stay as they are.
    void FollowDatabase();

    // Adds the table's box, below those added before, or renews it. A comment that is Missing stays.
    void DrawTable(const std::string& name, std::int32_t tabID, const Value& comments);

    // What can be done to the diagram, while its pane is visible or not.
    void RefreshCommands(bool paneIsVisible);

    void AutoPlace();
    void Save();  // to the diagram file beside the schema database; throws as TDiagram::SaveFile does

    // Makes the table's box, if there is one, the current one and brings it into view.
    void ShowBox(const std::string& key);

  signals:
    void RowWanted(std::int32_t tabID, const std::string& keyRow);  // of the tab Keys
    void NewKeyWanted(std::int32_t tabID, const std::string& name, std::int32_t refTabID);

  private:
    void AddButtons();
    void AddBoxes();
    void AddLinks();
    void ConnectEvents();
    void ConnectCommands();

    void ClickBox(const std::string& key, Qt::MouseButton button);
    void ClickLink(const std::string& key);
    void ClickBackground();
    void ReleaseKey(int key, Qt::KeyboardModifiers modifiers);
    void PopupGeneral();

    void NormalZoom();
    void QuickSearch();
    void Edit();
    void Copy();
    void SaveAs();
    void Print();

    [[nodiscard]] std::string DiagramFile() const;
    [[nodiscard]] std::string NameItem(int item) const;

    ComponentState& state_;
    const Commands& commands_;
    BrowserPane& browser_;
    TDiagram* diagram_;
    QPointF nextBox_;
    Qt::MouseButton button_ = Qt::NoButton;  // the one pressed last
    bool paneIsVisible_ = false;
};

}  // namespace tessel
