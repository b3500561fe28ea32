#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTreeView>
#include <memory>
#include <optional>

#include "schema/component_state.h"
#include "ui/main/browser_list.h"
#include "ui/main/browser_model.h"
#include "ui/main/qt_settings.h"

namespace tessel {

// The editor's main window. The component's state outlives it.
class frmMain : public QMainWindow, public ToolWindow {
  public:
    explicit frmMain(ComponentState& state);

    // Reads the type catalogue and shows the tables, the first of them selected.
    void Load();

    void DrawTable(const std::string& tableName, std::int32_t tabID, const Value& tag,
                   const Value& comments) override;
    void RemoveTable(const std::string& key) override;
    void AddConnector(const std::string&, const std::string&, const std::string&,
                      const std::string&) override {}
    void SetConnectorText(const std::string&, const std::string&) override {}
    void RemoveConnector(const std::string&) override {}

    // While progress is made the window takes no input and refuses to close.
    void StartProgress(const std::string& action, std::int32_t totalLength) override;
    void StartStep(const std::string&) override {}
    void FinishStep(std::int32_t) override {}
    void FinishProgress() override;

    void ShowErrors(const std::vector<ErrorRow>&, const std::string&) override {}

    // The selected table stays selected, if it is still there.
    void RefreshBrowser() override;

    std::string CVRL() const override { return cvrl_; }
    void SetCVRL(const std::string& value) override { cvrl_ = value; }

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    struct WaitCursor {
        WaitCursor();
        ~WaitCursor();
        WaitCursor(const WaitCursor&) = delete;
        WaitCursor& operator=(const WaitCursor&) = delete;
    };

    void PlaceControls();
    void RestoreGeometry();
    void SetCaption();
    void FitColumns();
    void SelectTable(std::string_view key);
    [[nodiscard]] std::string SelectedTable() const;  // its key; empty when none is selected

    ComponentState& state_;
    QtSettings settings_;
    BrowserList tables_;
    BrowserModel model_;
    QTreeView* lvBrowser_;
    std::optional<WaitCursor> waitCursor_;
    QPointer<QWidget> focusBeforeProgress_;
    std::string cvrl_;
};

// Makes the window and loads it; it is not shown yet.
[[nodiscard]] std::shared_ptr<ToolWindow> LoadMainWindow(ComponentState& state);

}  // namespace tessel
