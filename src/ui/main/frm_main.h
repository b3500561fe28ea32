#pragma once

#include <QMainWindow>
#include <QPointer>
#include <memory>
#include <optional>

#include "schema/component_state.h"
#include "ui/controls/busy.h"
#include "ui/controls/log_view.h"
#include "ui/controls/origin_viewer.h"
#include "ui/controls/qt_settings.h"
#include "ui/controls/splitter.h"
#include "ui/main/browser_pane.h"
#include "ui/main/commands.h"
#include "ui/main/cool_bar.h"
#include "ui/main/diagram_pane.h"
#include "ui/main/errors_pane.h"
#include "ui/main/execute_menu.h"
#include "ui/main/properties_pane.h"

namespace tessel {

// The editor's main window. The component's state outlives it.
class frmMain : public QMainWindow, public ToolWindow {
    Q_OBJECT

  public:
    explicit frmMain(ComponentState& state);
    ~frmMain() override;

    // Shows the window, which `self` holds, announces it to the host, and fills it: the panes as they were
    // left, the type catalogue, the tables, what the import brings, the errors found last.
    void Load(const std::shared_ptr<frmMain>& self);

    void DrawTable(const std::string& tableName, std::int32_t tabID, const Value& tag,
                   const Value& comments) override;
    void RemoveTable(const std::string& key) override;
    void AddConnector(const std::string& key, const std::string& fromKey, const std::string& toKey,
                      const std::string& caption) override;
    void SetConnectorText(const std::string& key, const std::string& caption) override;
    void RemoveConnector(const std::string& key) override;

    // While progress is made the window takes no input and refuses to close, and the lines of the
    // diagram are drawn at its end only. Units beyond the total are not shown.
    void StartProgress(const std::string& action, std::int32_t totalLength) override;
    void StartStep(const std::string& act) override;
    void FinishStep(std::int32_t length) override;
    void FinishProgress() override;

    void ShowErrors(const std::vector<ErrorRow>& errors, const std::string& title) override;

    // Lists and draws the tables anew. The selected one stays selected, if it is still there.
    void RefreshBrowser() override;

    // A table that is not listed yet is looked for in the database.
    void SelectTable(const std::string& key) override;

    // Lets the user make a foreign key of the table, `refTabID` (-1 for none) being offered as the one that
    // it refers to, and shows the new key.
    void AddNewKey(std::int32_t tabID, const std::string& name, std::int32_t refTabID);

    std::string CVRL() const override { return origin_->CVRL(); }
    void SetCVRL(const std::string& value) override;

    // The pane Log is shown while the host's activity log is both visible and docked.
    void DisplayLog();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    const ComponentState& State() const override { return state_; }

    // Making the window.
    void PlacePanes();
    void ConnectCommands();
    void ConnectPanes();
    void SetCaptions();

    // Its arrangement.
    void RestoreGeometry();
    void RestoreLayout();
    void BuildDefaultLayout();
    void StoreLayout();
    void ConnectViewCommands();
    void FollowLayout();

    // Loading it.
    void LoadContents();
    void LoadSchemaIcon();
    void LoadTables();
    void ListAddOns();
    [[nodiscard]] bool IsImportWanted();
    void ImportTables();

    // Its commands.
    void FinishEdit();
    void VerifyAll();
    void DeleteSchema();
    void EditOptions();
    void ShowExecuteMenu();
    void Execute(const AddOnEntry& entry, const QString& title);
    void FollowDatabase();
    void FollowLog(host::ActivityLog::Change change);
    void FloatLog();

    void ShowTable();  // the selected one, in the panes beside the browser
    void ShowRow(std::int32_t tabID, const char* tab, const std::string& rowKey);
    void ShowError(const ErrorRow& error);
    void RenewOriginCaption();

    // Closing it.
    void CancelEdit();
    void FinishSchema();
    void TryToClose(const std::function<void()>& step);
    void ReleasePanes();
    void ReleaseHost();

    ComponentState& state_;
    QtSettings settings_;
    CoolBar* coolBar_;
    Commands commands_;
    ExecuteMenu executeMenu_;
    TSplitter* splitter_;
    BrowserPane browser_;
    DiagramPane diagram_;
    PropertiesPane* properties_;
    ErrorsPane errors_;
    CVRLView* origin_;
    QWidget* logPlace_;  // where the log view stands while it is docked
    std::shared_ptr<host::ActivityLog> logCV_;
    QPointer<LogView> log_;
    std::unique_ptr<LogWindow> logWindow_;  // around the log view while that is not docked
    std::unique_ptr<Busy> progress_;
    std::optional<SuspendedDrawing> drawing_;  // while progress is made
};

// Makes the window, shows and loads it.
[[nodiscard]] std::shared_ptr<ToolWindow> LoadMainWindow(ComponentState& state);

}  // namespace tessel
