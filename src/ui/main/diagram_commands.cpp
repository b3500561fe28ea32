// What the user does to the diagram.

#include <QApplication>
#include <QKeyEvent>

#include "platform/files/file_service.h"
#include "schema/object_keys.h"
#include "ui/controls/busy.h"
#include "ui/controls/connect.h"
#include "ui/dialogs/diagram_services.h"
#include "ui/main/diagram_pane.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int saveTitleText = 2707;
constexpr int previewTitleText = 2708;
constexpr int emptyText = 2709;
constexpr int cannotPrintText = 2710;
constexpr int schemaText = 606;

// Notes whether Escape is pressed while it lives, in a window that takes no input as well.
class EscapeWatch : public QObject {
  public:
    EscapeWatch() { qApp->installEventFilter(this); }

    [[nodiscard]] bool WasPressed() const { return wasPressed_; }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            wasPressed_ = true;
        return false;
    }

  private:
    bool wasPressed_ = false;
};

}  // namespace

void DiagramPane::ConnectEvents() {
    Connect(diagram_, &TDiagram::BoxClicked, this, &DiagramPane::ClickBox);
    Connect(diagram_, &TDiagram::BoxDoubleClicked, this, [this](const std::string& key) {
        if (browser_.Select(key)) browser_.Properties();
    });
    Connect(diagram_, &TDiagram::LinkClicked, this, &DiagramPane::ClickLink);
    Connect(diagram_, &TDiagram::BoxesConnected, this,
            [this](const std::string& from, const std::string& to) {
                emit NewKeyWanted(IdentifierOf(from), diagram_->BoxCaption(from), IdentifierOf(to));
            });
    Connect(diagram_, &TDiagram::MousePressed, this, [this](Qt::MouseButton button) { button_ = button; });
    Connect(diagram_, &TDiagram::BackgroundClicked, this, &DiagramPane::ClickBackground);
    Connect(diagram_, &TDiagram::KeyReleased, this, &DiagramPane::ReleaseKey);
    Connect(diagram_, &TDiagram::Changed, this, [this] { RefreshCommands(paneIsVisible_); });
    Connect(diagram_, &TDiagram::QuickSearchChanged, this,
            [this](bool on) { commands_.Item("mnuDiagramSearch").setChecked(on); });
}

void DiagramPane::ConnectCommands() {
    const auto on = [this](std::initializer_list<const char*> items, const char* button,
                           void (DiagramPane::*act)()) {
        commands_.On(items, [this, act] { (this->*act)(); });
        Connect(diagram_, &TDiagram::ButtonClicked, this, [this, button, act](const std::string& key) {
            if (key == button) (this->*act)();
        });
    };
    on({"mnuDiagramAutoPlace", "mnuGeneralAutoPlace"}, "Place", &DiagramPane::AutoPlace);
    on({"mnuDiagramZoom"}, "Zoom100", &DiagramPane::NormalZoom);
    on({"mnuDiagramEdit"}, "Edit", &DiagramPane::Edit);
    on({"mnuDiagramSearch"}, "Search", &DiagramPane::QuickSearch);
    on({"mnuDiagramCopyClipboard"}, "Copy", &DiagramPane::Copy);
    on({"mnuDiagramSaveAs"}, "Save", &DiagramPane::SaveAs);
    on({"mnuDiagramPrint"}, "Print", &DiagramPane::Print);
}

void DiagramPane::ClickBox(const std::string& key, Qt::MouseButton button) {
    browser_.Select(key);
    if (button == Qt::RightButton)
        commands_.Popup("mnuStructure", diagram_->PopupPlace(), "mnuStructureProperties");
}

void DiagramPane::ClickLink(const std::string& key) {
    emit RowWanted(IdentifierOf(diagram_->LinkFrom(key)), key);
}

void DiagramPane::ClickBackground() {
    if (state_.database && button_ == Qt::RightButton) PopupGeneral();
}

void DiagramPane::ReleaseKey(int key, Qt::KeyboardModifiers modifiers) {
    if (key == Qt::Key_Delete) browser_.Delete();
    if (key == Qt::Key_Menu || (key == Qt::Key_F10 && modifiers == Qt::ShiftModifier)) PopupGeneral();
}

void DiagramPane::PopupGeneral() { commands_.Popup("mnuGeneral", diagram_->PopupPlace()); }

// Escape ends a placement that takes too long.
void DiagramPane::AutoPlace() {
    const Busy placing(*browser_.View().window());
    const EscapeWatch watch;
    (void)diagram_->Place([&watch] {
        QApplication::processEvents();
        return !watch.WasPressed();
    });
}

void DiagramPane::NormalZoom() { diagram_->SetZoom(100); }

void DiagramPane::QuickSearch() { diagram_->SetQuickSearch(!diagram_->QuickSearch()); }

void DiagramPane::Edit() {
    EditDiagram(state_, *diagram_,
                files::NativePath(NameItem(host::name_item::workspaceFolder) + "\\Projects\\" +
                                  NameItem(host::name_item::projectName) + "\\VNT.dgm.xml"));
}

void DiagramPane::Copy() { CopyDiagram(*diagram_); }

void DiagramPane::SaveAs() {
    const std::string name =
        state_.texts->Text(schemaText) + " (" + files::SplitPath(state_.databaseFilename).baseName + ")";
    SaveDiagramAs(state_, *diagram_, state_.texts->Text(saveTitleText), name,
                  files::NativePath(NameItem(host::name_item::workspaceFolder) + "\\Output"));
}

void DiagramPane::Print() {
    if (diagram_->BoxCount() == 0)
        return Tell(state_, state_.texts->Text(emptyText), host::Icon::Information);
    try {
        PreviewDiagram(state_, *diagram_, state_.texts->Text(previewTitleText));
    } catch (const std::exception& error) {
        Tell(state_, state_.texts->Text(cannotPrintText), host::Icon::Critical, error.what());
    }
}

}  // namespace tessel
