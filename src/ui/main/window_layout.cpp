#include <QScreen>

#include "ui/main/frm_main.h"

namespace tessel {

namespace {

constexpr QSize defaultSize(1100, 720);
constexpr const char* section = "Settings";
constexpr const char* geometryKey = "MainWindow";
constexpr const char* layoutKey = "MainSplitter";
constexpr const char* logKey = "ActivityLog";
constexpr const char* floating = "floating";  // the log as it was left while not docked
constexpr std::string_view layoutPrefix = "uBrowserDiagramPropertiesOriginErrorsLog";

struct PaneDefault {
    const char* name;
    int caption;
    bool isVisible;
};

constexpr PaneDefault paneDefaults[] = {
    {"Browser", 560, true}, {"Diagram", 561, false}, {"Properties", 562, true},
    {"Origin", 563, false}, {"Errors", 564, false},  {"Log", 565, false},
};

// The panes that a menu item and perhaps a button show and hide.
struct PaneCommand {
    const char* pane;
    const char* item;
    const char* button;
};

constexpr PaneCommand paneCommands[] = {
    {"Browser", "mnuViewBrowser", "tbBrowser"},   {"Diagram", "mnuViewDiagram", "tbDiagram"},
    {"Properties", "mnuViewProperties", nullptr}, {"Origin", "mnuViewOrigin", nullptr},
    {"Errors", "mnuViewErrors", nullptr},
};

}  // namespace

void frmMain::RestoreGeometry() {
    resize(defaultSize.boundedTo(screen()->availableSize()));
    const std::string stored = settings_.Get(section, geometryKey).value_or("");
    restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(stored)));
}

void frmMain::RestoreLayout() {
    splitter_->SetRedraw(TSplitter::Redraw::Off);
    const std::string stored = settings_.Get(section, layoutKey).value_or("");
    if (!stored.starts_with(layoutPrefix) ||
        !splitter_->ImportLayout(QString::fromStdString(stored.substr(layoutPrefix.size()))))
        BuildDefaultLayout();
    // The layout may have been stored in another language.
    for (const PaneDefault& pane : paneDefaults)
        splitter_->SetCaption(pane.name, QString::fromStdString(state_.texts->Text(pane.caption)));
    // The log tells of each change of its state, and the pane then follows it.
    const bool floats = settings_.Get(section, logKey) == floating;
    const bool isShown = floats || splitter_->IsPaneVisible("Log");
    logCV_->SetDocked(!floats);
    logCV_->SetVisible(isShown);
    splitter_->SetRedraw(TSplitter::Redraw::On);
    DisplayLog();
    splitter_->Rearrange();
}

void frmMain::BuildDefaultLayout() {
    const int width = splitter_->width();
    const int height = splitter_->height();
    const auto [top, bottom] = splitter_->Split(splitter_->Clear(), Qt::Vertical, height * 5 / 6);
    const auto [left, right] = splitter_->Split(top, Qt::Horizontal, width / 2);
    splitter_->Split(left, Qt::Vertical, height / 2, "Diagram", "Browser");
    splitter_->Split(right, Qt::Vertical, height / 2, "Origin", "Properties");
    splitter_->Split(bottom, Qt::Vertical, height / 12, "Log", "Errors");
    for (const PaneDefault& pane : paneDefaults) splitter_->SetPaneVisible(pane.name, pane.isVisible);
}

void frmMain::StoreLayout() {
    settings_.Set(section, geometryKey, saveGeometry().toBase64().toStdString());
    settings_.Set(section, layoutKey, std::string(layoutPrefix) + splitter_->ExportLayout().toStdString());
    settings_.Set(section, logKey, logCV_->IsVisible() && !logCV_->IsDocked() ? floating : "");
}

void frmMain::ConnectViewCommands() {
    for (const auto& [pane, item, button] : paneCommands) {
        const auto toggle = [this, name = QString(pane)] {
            splitter_->SetPaneVisible(name, !splitter_->IsPaneVisible(name));
        };
        commands_.On({item}, toggle);
        if (button) commands_.On({button}, toggle);
    }
    commands_.On({"mnuViewLog"}, [this] { logCV_->SetVisible(!logCV_->IsVisible()); });
}

void frmMain::FollowLayout() {
    for (const auto& [pane, item, button] : paneCommands) {
        const bool isVisible = splitter_->IsPaneVisible(pane);
        commands_.Item(item).setChecked(isVisible);
        if (button) commands_.Item(button).setChecked(isVisible);
    }
    const bool hasDiagram = splitter_->IsPaneVisible("Diagram");
    commands_.Menu("mnuDiagram").setEnabled(hasDiagram);
    commands_.Menu("mnuGeneral").setEnabled(hasDiagram);
    diagram_.RefreshCommands(hasDiagram);
}

void frmMain::DisplayLog() {
    const bool isVisible = logCV_->IsVisible();
    splitter_->SetPaneVisible("Log", isVisible && logCV_->IsDocked());
    FloatLog();
    FollowLayout();
    commands_.Item("mnuViewLog").setChecked(isVisible);
}

}  // namespace tessel
