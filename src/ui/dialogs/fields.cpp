#include "ui/dialogs/fields.h"

#include <QDateTime>
#include <QIcon>
#include <QLocale>
#include <QRegularExpression>
#include <QStyle>
#include <QTextDocument>
#include <QVBoxLayout>
#include <limits>

namespace tessel {

QLabel* ValueLabel(const char* name, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel* CaptionLabel(const char* name, const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(buddy);
    return label;
}

QLabel* PictureLabel(const char* name, const QIcon& icon) {
    auto* label = new QLabel;
    label->setObjectName(name);
    const int size = label->style()->pixelMetric(QStyle::PM_LargeIconSize);
    label->setPixmap(icon.pixmap(QSize(size, size), label->devicePixelRatioF()));
    return label;
}

void LiftLimit(QLineEdit& line) { line.setMaxLength(std::numeric_limits<int>::max()); }

TextLine::TextLine(const std::string& text) : original_(text) {
    LiftLimit(*this);
    setText(QString::fromStdString(text));
}

std::string TextLine::Text() const {
    return text() == QString::fromStdString(original_) ? original_ : text().toStdString();
}

CommentBox::CommentBox(const char* name, const std::string& text, const QString& accessibleName)
    : QPlainTextEdit(QString::fromStdString(text)), original_(text) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setTabChangesFocus(true);
}

std::string CommentBox::Text() const {
    if (!document()->isModified()) return original_;
    // toPlainText makes blanks of no-break spaces.
    return document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, "\r\n")
        .replace(QChar::LineSeparator, "\r\n")
        .toStdString();
}

QWidget* CommentPage(CommentBox* box) {
    auto* page = new QWidget;
    (new QVBoxLayout(page))->addWidget(box);
    return page;
}

QString LongTime(DateTime when) {
    const QLocale locale = QLocale::system();
    // "t" is the time zone, which a schema does not keep; in some locales it stands in parentheses.
    QString format = locale.timeFormat(QLocale::LongFormat);
    format.remove(QRegularExpression("\\s*[(\\[]?\\bt+\\b[)\\]]?"));
    return locale.toString(QDateTime::fromSecsSinceEpoch(when.seconds, Qt::UTC).time(), format.trimmed());
}

}  // namespace tessel
