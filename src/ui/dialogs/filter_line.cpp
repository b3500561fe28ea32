#include "ui/dialogs/filter_line.h"

#include <QLineEdit>

#include "platform/text/utf8.h"
#include "ui/controls/connect.h"

namespace tessel {

void FilterLine(QLineEdit& line, EditText edit, std::function<void()> refresh) {
    Connect(&line, &QLineEdit::textEdited, &line, [&line, edit, refresh](const QString& typed) {
        const std::string before = typed.left(line.cursorPosition()).toStdString();
        const std::int32_t caret =
            edit(typed.toStdString(), static_cast<std::int32_t>(text::CharacterCount(before)));
        refresh();
        const std::string shown = line.text().toStdString();
        const auto kept = text::Left(shown, static_cast<std::size_t>(caret));
        line.setCursorPosition(
            static_cast<int>(QString::fromUtf8(kept.data(), qsizetype(kept.size())).size()));
    });
}

void ShowText(QLineEdit& line, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (line.text() != shown) line.setText(shown);
}

}  // namespace tessel
