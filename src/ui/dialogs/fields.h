#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QString>
#include <string>

#include "tessel/date_time.h"

// Pieces that the dialogs are made of.
namespace tessel {

// A label that shows `text` as it is, never as markup, to be selected and copied; a long one is broken.
[[nodiscard]] QLabel* ValueLabel(const char* name, const QString& text);

// A label whose mnemonic leads to `buddy`; never markup either.
[[nodiscard]] QLabel* CaptionLabel(const char* name, const QString& text, QWidget* buddy = nullptr);

// A picture of an icon in the size of the style's icons.
[[nodiscard]] QLabel* PictureLabel(const char* name, const QIcon& icon);

// A control that bears a caption, or holds a text.
template <typename Control>
[[nodiscard]] Control* Named(const char* name, const QString& caption = {}) {
    auto* control = new Control(caption);
    control->setObjectName(name);
    return control;
}

// Lets the line hold a text of any length; else it cuts a long one.
void LiftLimit(QLineEdit& line);

// A line for a text of any length. A text that is not edited comes back exactly as it was.
class TextLine : public QLineEdit {
  public:
    explicit TextLine(const std::string& text);
    [[nodiscard]] std::string Text() const;

  private:
    std::string original_;
};

// A box for a text of several lines, which are stored with a carriage return and a line feed between them. A
// text that is not edited comes back exactly as it was.
class CommentBox : public QPlainTextEdit {
  public:
    CommentBox(const char* name, const std::string& text, const QString& accessibleName);
    [[nodiscard]] std::string Text() const;

  private:
    std::string original_;
};

// A page of a tab control that the box fills.
[[nodiscard]] QWidget* CommentPage(CommentBox* box);

// The time of day in the user's locale, as long as it is written there without a time zone.
[[nodiscard]] QString LongTime(DateTime when);

}  // namespace tessel
