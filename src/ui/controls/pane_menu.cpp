#include "ui/controls/pane_menu.h"

#include "ui/controls/pane_texts.h"

namespace tessel {

namespace {

constexpr double sizeStep = 0.05;

}  // namespace

PaneMenu::PaneMenu(const text::Texts& texts, const PaneLayout& layout, const QString& name,
                   PaneCommands& commands, QWidget* parent)
    : QMenu(parent), texts_(texts), commands_(commands), name_(name) {
    setObjectName("mnuPane");
    for (const std::string& other : layout.Order()) {
        const Pane& pane = layout.At(other);
        if (pane.visible && other != name.toStdString())
            others_.append({QString::fromStdString(other), QString::fromStdString(pane.caption)});
    }
    AddWindowItems(layout.Maximised() == name.toStdString());
    if (others_.isEmpty()) return;
    addSeparator();
    AddMoves();
    AddSwap();
    addSeparator();
    AddSizes(layout);
}

QString PaneMenu::Text(int number) const { return QString::fromStdString(texts_.Text(number)); }

QAction* PaneMenu::AddItem(QMenu& menu, const QString& itemName, const QString& caption,
                           std::function<void()> run) {
    QAction* item = menu.addAction(caption);
    item->setObjectName(itemName);
    connect(item, &QAction::triggered, this, run);
    return item;
}

void PaneMenu::AddWindowItems(bool isMaximised) {
    AddItem(*this, "mnuPaneMaximise", Text(isMaximised ? pane_text::restore : pane_text::maximise), [this] {
        commands_.ToggleMaximised(name_);
    })->setEnabled(!others_.isEmpty());
    AddItem(*this, "mnuPaneClose", Text(pane_text::close), [this] { commands_.Close(name_); });
}

QMenu* PaneMenu::AddSubmenu(const char* itemName, int text) {
    QMenu* submenu = addMenu(Text(text));
    submenu->setObjectName(itemName);
    return submenu;
}

void PaneMenu::AddMoves() {
    AddMove("mnuPaneLeftOf", pane_text::leftOf, PaneEdge::Left);
    AddMove("mnuPaneRightOf", pane_text::rightOf, PaneEdge::Right);
    AddMove("mnuPaneAbove", pane_text::above, PaneEdge::Above);
    AddMove("mnuPaneBelow", pane_text::below, PaneEdge::Below);
}

namespace {

// A caption is no place for mnemonics.
QString Plain(QString caption) { return caption.replace('&', "&&"); }

}  // namespace

void PaneMenu::AddMove(const char* itemName, int text, PaneEdge edge) {
    QMenu* submenu = AddSubmenu(itemName, text);
    for (const auto& [other, caption] : others_)
        AddItem(*submenu, itemName + other, Plain(caption),
                [=, this, target = other] { commands_.Dock(name_, edge, target); });
    submenu->addSeparator();
    AddItem(*submenu, itemName + QString("Window"), Text(pane_text::wholeWindow),
            [=, this] { commands_.Dock(name_, edge, std::nullopt); });
}

void PaneMenu::AddSwap() {
    QMenu* submenu = AddSubmenu("mnuPaneSwapWith", pane_text::swapWith);
    for (const auto& [other, caption] : others_)
        AddItem(*submenu, "mnuPaneSwapWith" + other, Plain(caption),
                [this, target = other] { commands_.Swap(name_, target); });
}

void PaneMenu::AddSizes(const PaneLayout& layout) {
    const auto add = [&](const char* itemName, int text, PaneDirection direction, double change) {
        AddItem(*this, itemName, Text(text), [=, this] {
            commands_.Grow(name_, direction, change);
        })->setEnabled(layout.CanGrow(name_.toStdString(), direction));
    };
    add("mnuPaneWider", pane_text::wider, PaneDirection::SideBySide, sizeStep);
    add("mnuPaneNarrower", pane_text::narrower, PaneDirection::SideBySide, -sizeStep);
    add("mnuPaneTaller", pane_text::taller, PaneDirection::Stacked, sizeStep);
    add("mnuPaneShorter", pane_text::shorter, PaneDirection::Stacked, -sizeStep);
}

}  // namespace tessel
