#include "ui/main/commands.h"

#include "ui/controls/connect.h"
#include "ui/controls/image_list.h"

namespace tessel {

namespace {

constexpr int separator = 0;

struct MenuItem {
    const char* name;
    int text;  // of its caption; `separator` for a line
    bool checkable = false;
    QKeyCombination key{};  // shown beside the caption; the list that the command belongs to acts on it
};

struct MenuDefinition {
    const char* name;
    int text;
    bool inMenuBar;
    std::vector<MenuItem> items;
};

const std::vector<MenuDefinition>& Menus() {
    static const std::vector<MenuDefinition> menus{
        {"mnuFile",
         2020,
         true,
         {{"mnuVerifyAll", 2021},
          {"mnuFileDelete", 2022},
          {"mnuFileSep2", separator},
          {"mnuFileExit", 2023}}},
        {"mnuExecute", 2024, true, {{"mnuExecuteItem", 2025}}},
        {"mnuStructure",
         2026,
         true,
         {{"mnuStructureNew", 2027, false, Qt::Key_Insert},
          {"mnuStructureDelete", 2028, false, Qt::Key_Delete},
          {"mnuStructureRename", 2029, false, Qt::Key_F2},
          {"mnuTableSep1", separator},
          {"mnuStructureProperties", 2030, false, Qt::ALT | Qt::Key_Return}}},
        {"mnuDiagram",
         2031,
         true,
         {{"mnuDiagramAutoPlace", 2032},
          {"mnuDiagramZoom", 2033},
          {"mnuDiagramEdit", 2034},
          {"mnuDiagramSearch", 2035, true},
          {"mnuDiagramSep2", separator},
          {"mnuDiagramCopyClipboard", 2036},
          {"mnuDiagramSaveAs", 2037},
          {"mnuDiagramPrint", 2038}}},
        {"mnuView",
         2039,
         true,
         {{"mnuViewBrowser", 2040, true},
          {"mnuViewDiagram", 2041, true},
          {"mnuViewProperties", 2042, true},
          {"mnuViewSep1", separator},
          {"mnuViewErrors", 2043, true},
          {"mnuViewOrigin", 2044, true},
          {"mnuViewLog", 2045, true},
          {"mnuViewSep2", separator},
          {"mnuViewOptions", 2046}}},
        {"mnuHelp",
         2047,
         true,
         {{"mnuHelpTopics", 2048},
          {"mnuHelpWindow", 2049},
          {"mnuHelpSep", separator},
          {"mnuHelpAbout", 2050}}},
        {"mnuGeneral",
         2051,
         false,
         {{"mnuCreateTable", 2027},
          {"mnuGeneralSep1", separator},
          {"mnuGeneralVerifyAll", 2021},
          {"mnuGeneralSep", separator},
          {"mnuGeneralAutoPlace", 2032}}},
        {"mnuPopup",
         2052,
         false,
         {{"mnuPopupNew", 2053, false, Qt::Key_Insert},
          {"mnuPopupDelete", 2028, false, Qt::Key_Delete},
          {"mnuPopupRename", 2029, false, Qt::Key_F2},
          {"mnuPopupSep1", separator},
          {"mnuPopupLocate", 2054},
          {"mnuPopupSep2", separator},
          {"mnuPopupProperties", 2030, false, Qt::ALT | Qt::Key_Return}}},
    };
    return menus;
}

struct Button {
    const char* key;  // none for a line
    int tooltip = 0;
    bool checkable = false;
};

constexpr Button buttons[] = {
    {nullptr}, {"Execute", 2055},       {"Options", 2056},       {nullptr}, {"NewTable", 2057},
    {nullptr}, {"Browser", 2058, true}, {"Diagram", 2059, true}, {nullptr}, {"Verify", 2060},
};

QString Shown(const text::Texts& texts, int number) { return QString::fromStdString(texts.Text(number)); }

void AddItem(const text::Texts& texts, QMenu& menu, const MenuItem& item) {
    QAction* action = menu.addAction(item.text == separator ? QString() : Shown(texts, item.text));
    action->setObjectName(item.name);
    action->setSeparator(item.text == separator);
    action->setCheckable(item.checkable);
    if (item.key == QKeyCombination{}) return;
    action->setShortcut(item.key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
}

void AddButton(const text::Texts& texts, QToolBar& toolbar, const Button& button) {
    static const ImageList images = ToolbarImages();
    if (!button.key) return void(toolbar.addSeparator());
    const QString tooltip = Shown(texts, button.tooltip);
    QAction* action = toolbar.addAction(images.Icon(button.key), tooltip);
    action->setObjectName(QString("tb") + button.key);
    action->setToolTip(tooltip);
    action->setCheckable(button.checkable);
}

}  // namespace

Commands::Commands(const text::Texts& texts, QMenuBar& menuBar, QToolBar& toolbar)
    : menuBar_(menuBar), toolbar_(toolbar) {
    for (const MenuDefinition& definition : Menus()) {
        auto* menu = new QMenu(Shown(texts, definition.text), &menuBar);
        menu->setObjectName(definition.name);
        menu->menuAction()->setObjectName(definition.name);
        for (const MenuItem& item : definition.items) AddItem(texts, *menu, item);
        if (definition.inMenuBar) menuBar.addMenu(menu);
    }
    for (const Button& button : buttons) AddButton(texts, toolbar, button);
}

QAction& Commands::Item(const char* name) const {
    auto* item = menuBar_.findChild<QAction*>(name);
    return item ? *item : *toolbar_.findChild<QAction*>(name);
}

QMenu& Commands::Menu(const char* name) const { return *menuBar_.findChild<QMenu*>(name); }

void Commands::On(std::initializer_list<const char*> items, const std::function<void()>& act) const {
    const auto actIfAwake = [&menuBar = menuBar_, act] {
        if (menuBar.isEnabled()) act();
    };
    for (const char* item : items) Connect(&Item(item), &QAction::triggered, &menuBar_, actIfAwake);
}

void Commands::Popup(const char* menu, const QPoint& place, const char* defaultItem) const {
    QMenu& shown = Menu(menu);
    // In the menu bar the same menu has no such item.
    if (defaultItem) {
        shown.setDefaultAction(&Item(defaultItem));
        Connect(
            &shown, &QMenu::aboutToHide, &shown, [&shown] { shown.setDefaultAction(nullptr); },
            Qt::SingleShotConnection);
    }
    shown.popup(place);
}

}  // namespace tessel
