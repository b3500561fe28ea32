#include "ui/main/qt_questions.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QTextDocument>
#include <algorithm>
#include <utility>

#include "ui/controls/busy.h"
#include "ui/controls/connect.h"
#include "ui/controls/help_window.h"
#include "ui/dialogs/dialog.h"
#include "ui/dialogs/fields.h"
#include "ui/dialogs/form_dialog.h"

namespace tessel {

namespace {

constexpr int inputWidth = 420;
constexpr qsizetype mostLines = 15;
constexpr qsizetype mostCharacters = 1000;

constexpr std::pair<host::Icon, QMessageBox::Icon> icons[] = {
    {host::Icon::None, QMessageBox::NoIcon},
    {host::Icon::Critical, QMessageBox::Critical},
    {host::Icon::Exclamation, QMessageBox::Warning},
    {host::Icon::Warning, QMessageBox::Warning},
    {host::Icon::Information, QMessageBox::Information},
};

constexpr std::pair<host::Buttons, QMessageBox::StandardButtons::Int> buttonSets[] = {
    {host::Buttons::OK, QMessageBox::Ok},
    {host::Buttons::OKCancel, QMessageBox::Ok | QMessageBox::Cancel},
    {host::Buttons::YesNo, QMessageBox::Yes | QMessageBox::No},
};

constexpr std::pair<int, host::Answer> answers[] = {
    {QMessageBox::Ok, host::Answer::OK},
    {QMessageBox::Cancel, host::Answer::Cancel},
    {QMessageBox::Yes, host::Answer::Yes},
    {QMessageBox::No, host::Answer::No},
};

template <typename Table, typename Key>
auto Look(const Table& table, Key key) {
    return std::ranges::find(table, key, [](const auto& entry) { return entry.first; })->second;
}

void ShowAsPlainText(QWidget& box) {
    for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
}

// As much of a text as a box has room for, which the screen must hold together with its buttons.
QString Shortened(const QString& text) {
    QString shown = text.section('\n', 0, mostLines - 1).left(mostCharacters);
    if (shown == text) return text;
    if (shown.back().isHighSurrogate()) shown.chop(1);
    return shown + QChar(0x2026);
}

void ShowTexts(QMessageBox& shown, const QString& text, const QString& detail) {
    shown.setText(Shortened(text));
    shown.setInformativeText(Shortened(detail));
    if (shown.text() == text && shown.informativeText() == detail) return;
    shown.setDetailedText(detail.isEmpty() ? text : text + "\n\n" + detail);
}

void ShowPrompt(QInputDialog& shown, const QString& prompt) {
    shown.setLabelText(Shortened(prompt));
    if (shown.labelText() != prompt)
        shown.findChild<QLabel*>()->setToolTip(Qt::convertFromPlainText(prompt, Qt::WhiteSpaceNormal));
}

}  // namespace

host::Answer QtQuestions::Show(const host::MessageBox& box) {
    const UsualPointer pointer;
    QMessageBox shown(Owner());
    shown.setObjectName("messageBox");
    shown.setWindowTitle(Caption(box.title));
    ShowTexts(shown, Caption(box.text), Caption(box.detail));
    shown.setIcon(Look(icons, box.icon));
    shown.setStandardButtons(QMessageBox::StandardButtons(Look(buttonSets, box.buttons)));
    ShowAsPlainText(shown);
    return Look(answers, shown.exec());
}

std::optional<std::string> QtQuestions::Ask(const host::InputBox& box) {
    const UsualPointer pointer;
    QInputDialog dialog(Owner());
    dialog.setObjectName("inputDialog");
    dialog.setWindowTitle(Caption(box.title));
    ShowPrompt(dialog, Caption(box.prompt));
    auto& line = *dialog.findChild<QLineEdit*>();
    line.setObjectName("txtInput");
    LiftLimit(line);
    dialog.setTextValue(QString::fromStdString(box.text));
    dialog.resize(inputWidth, dialog.sizeHint().height());
    ShowAsPlainText(dialog);
    if (box.helpContext != 0) {
        const auto show = [&] { ShowHelp(state_, &dialog, box.helpContext); };
        Connect(new QShortcut(Qt::Key_F1, &dialog), &QShortcut::activated, &dialog, show);
        auto& buttons = *dialog.findChild<QDialogButtonBox*>();
        Connect(buttons.addButton(QDialogButtonBox::Help), &QPushButton::clicked, &dialog, show);
    }
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue().toStdString();
}

std::shared_ptr<Collection> QtQuestions::Fill(const host::Form& form) {
    const UsualPointer pointer;
    return FormDialog(state_, form, Owner()).Fill();
}

QWidget* QtQuestions::Owner() const {
    QWidget* active = QApplication::activeWindow();
    // A window that has just been hidden may still count as the active one.
    return active && active->isVisible() ? active : dynamic_cast<QWidget*>(state_.window.get());
}

}  // namespace tessel
