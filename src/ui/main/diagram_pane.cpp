#include "ui/main/diagram_pane.h"

#include <unordered_set>

#include "platform/files/file_service.h"
#include "platform/text/utf8.h"
#include "schema/object_keys.h"
#include "schema/sql_text.h"

namespace tessel {

namespace {

constexpr QPointF boxDistance(0, 10);
constexpr QRgb boxColour = qRgb(0, 255, 255);

struct Button {
    const char* key;
    int tooltip;
    const char* command;
};

constexpr Button buttons[] = {
    {"Zoom100", 2700, "mnuDiagramZoom"},  {"Print", 2701, "mnuDiagramPrint"},
    {"Save", 2702, "mnuDiagramSaveAs"},   {"Copy", 2703, "mnuDiagramCopyClipboard"},
    {"Search", 2704, "mnuDiagramSearch"}, {"Place", 2705, "mnuDiagramAutoPlace"},
    {"Edit", 2706, "mnuDiagramEdit"},
};

// Commands that need a box.
constexpr const char* commandsOnBoxes[] = {"mnuDiagramCopyClipboard", "mnuDiagramPrint", "mnuDiagramSaveAs",
                                           "mnuDiagramAutoPlace", "mnuGeneralAutoPlace"};

}  // namespace

DiagramPane::DiagramPane(ComponentState& state, const Commands& commands, BrowserPane& browser)
    : state_(state), commands_(commands), browser_(browser), diagram_(new TDiagram(*state.texts)) {
    diagram_->setObjectName("Diagram");
    ConnectEvents();
    ConnectCommands();
}

void DiagramPane::Refresh() {
    AddButtons();
    diagram_->SetZoom(100);
    {
        const SuspendedDrawing drawing(*diagram_);
        diagram_->Clear();
        diagram_->LoadFile(DiagramFile());
        nextBox_ = {};
        AddBoxes();
        AddLinks();
    }
    diagram_->SetBackground({});
    RefreshCommands(paneIsVisible_);
}

void DiagramPane::FollowDatabase() {
    {
        const SuspendedDrawing drawing(*diagram_);
        nextBox_ = {};
        AddBoxes();
        AddLinks();
    }
    RefreshCommands(paneIsVisible_);
}

void DiagramPane::AddButtons() {
    static const ImageList images = DiagramImages();
    for (const auto& [key, tooltip, command] : buttons)
        diagram_->AddButton(key, images.Icon(key), state_.texts->Text(tooltip));
}

void DiagramPane::AddBoxes() {
    for (const BrowserRow& table : browser_.Tables().Rows())
        DrawTable(table.text, IdentifierOf(table.key), table.description);
    const std::vector<std::string> keys = diagram_->BoxKeys();
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        if (!browser_.Tables().Find(*key)) diagram_->RemoveBox(*key);
}

void DiagramPane::AddLinks() {
    std::unordered_set<std::string> keys;
    for (auto row = state_.Database().Select("select * from ForeignKeys "); row.Next();) {
        const std::string key = ForeignKeyKey(row.Integer("KeyID"));
        diagram_->AddLink(key, TableKey(row.Integer("TabID")), TableKey(row.Integer("RefTabId")),
                          row.Text("KeyName"));
        keys.insert(key);
    }
    for (const std::string& key : diagram_->LinkKeys())
        if (!keys.contains(key)) diagram_->RemoveLink(key);
}

void DiagramPane::DrawTable(const std::string& name, std::int32_t tabID, const Value& comments) {
    const std::string key = TableKey(tabID);
    nextBox_ += boxDistance;
    if (diagram_->HasBox(key)) {
        diagram_->SetBoxCaption(key, name);
    } else {
        diagram_->AddBox(key, name, nextBox_);
        diagram_->SetBoxColour(key, boxColour);
    }
    diagram_->SetBoxWidth(key, 2.0 * static_cast<double>(text::CharacterCount(name)));
    if (!comments.IsMissing()) diagram_->SetBoxComment(key, FlattenText(NullToText(comments)));
}

void DiagramPane::RefreshCommands(bool paneIsVisible) {
    paneIsVisible_ = paneIsVisible;
    const bool canUse = paneIsVisible && diagram_->BoxCount() > 0;
    for (const char* command : commandsOnBoxes) commands_.Item(command).setEnabled(canUse);
    for (const auto& [key, tooltip, command] : buttons)
        diagram_->SetButtonEnabled(key, commands_.Item(command).isEnabled());
    commands_.Item("mnuDiagramSearch").setChecked(diagram_->QuickSearch());
}

void DiagramPane::ShowBox(const std::string& key) {
    if (!diagram_->HasBox(key)) return;
    diagram_->SetCurrentBox(key);
    diagram_->BringIntoView(key);
}

void DiagramPane::Save() { diagram_->SaveFile(DiagramFile()); }

std::string DiagramPane::DiagramFile() const {
    const files::PathParts parts = files::SplitPath(state_.databaseFilename);
    return files::NativePath(parts.folder + "\\" + parts.baseName + ".dgm.xml");
}

std::string DiagramPane::NameItem(int item) const { return state_.Frontend().GetCorvaneName(item); }

}  // namespace tessel
