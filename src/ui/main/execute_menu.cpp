#include "ui/main/execute_menu.h"

#include <QRegularExpression>
#include <QToolButton>
#include <vector>

#include "ui/controls/connect.h"

namespace tessel {

namespace {

constexpr const char* firstItem = "mnuExecuteItem";

// Of the mnemonics in a nested entry's caption the entry's own stays: those of the lists around it would lead
// to all their entries.
QString WithOwnMnemonic(QString caption) {
    static const QRegularExpression marks(R"(&&|\(&[^&]\)|&)");
    std::vector<QRegularExpressionMatch> mnemonics;
    for (auto match = marks.globalMatch(caption); match.hasNext();) {
        mnemonics.push_back(match.next());
        if (mnemonics.back().captured() == "&&") mnemonics.pop_back();
    }
    if (!mnemonics.empty()) mnemonics.pop_back();
    for (auto mark = mnemonics.rbegin(); mark != mnemonics.rend(); ++mark)
        caption.remove(mark->capturedStart(), mark->capturedLength());
    return caption;
}

}  // namespace

ExecuteMenu::ExecuteMenu(const Commands& commands, QToolBar& toolbar)
    : commands_(commands), toolbar_(toolbar), tbExecuteMenu_(new QMenu(&toolbar)) {
    tbExecuteMenu_->setObjectName("tbExecuteMenu");
    commands_.Item(firstItem).setEnabled(false);
}

void ExecuteMenu::List(AddOnMenu menu) {
    listed_ = std::move(menu);
    if (listed_.items.empty()) return;
    QMenu& mnuExecute = commands_.Menu("mnuExecute");
    for (const auto& item : listed_.items) item.entry == 0 ? void(mnuExecute.addSeparator()) : AddEntry(item);
    tbExecuteMenu_->addActions(mnuExecute.actions());
    auto& button = dynamic_cast<QToolButton&>(*toolbar_.widgetForAction(&commands_.Item("tbExecute")));
    button.setPopupMode(QToolButton::MenuButtonPopup);
    button.setMenu(tbExecuteMenu_);
}

void ExecuteMenu::AddEntry(const AddOnMenu::Item& item) {
    QAction* action = NewItem(item.entry);
    action->setText(WithOwnMnemonic(QString::fromStdString(item.caption)));
    action->setEnabled(true);
    action->setData(static_cast<int>(item.entry));
    AddOnEntry& entry = listed_.entries[item.entry - 1];
    entry.caption = action->text().toStdString();
    Connect(action, &QAction::triggered, this,
            [this, action, &entry] { emit Chosen(entry, action->iconText()); });
}

QAction* ExecuteMenu::NewItem(std::size_t entry) {
    if (entry == 1) return &commands_.Item(firstItem);
    QAction* action = commands_.Menu("mnuExecute").addAction(QString());
    action->setObjectName(QString("%1_%2").arg(firstItem).arg(entry - 1));
    return action;
}

}  // namespace tessel
