#pragma once

#include <QWidget>

#include "platform/diagram/seek.h"
#include "platform/text/texts.h"

class QLabel;
class QLineEdit;
class QToolButton;

namespace tessel {

// The line txtFind over a diagram, in which to look for boxes by their captions and comments. Enter and F3
// go to the next one found, with Shift to the one before, around the ends; Escape closes the line.
class DiagramSearch : public QWidget {
    Q_OBJECT

  public:
    DiagramSearch(const diagram::Content& content, const text::Texts& texts, QWidget* parent);

    void Open(const QString& begin = {});  // with these first letters, or what was looked for last
    void Refresh();                        // after the content changed
    void FindNext(bool backwards);

  signals:
    void Found(const std::vector<std::string>& boxes);
    void Chosen(const std::string& box);
    void CloseWanted();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    [[nodiscard]] QToolButton* AddButton(const char* name, const QString& sign, int tooltip);
    void Look();  // for what the line says
    void ShowCount();

    const diagram::Content& content_;
    const text::Texts& texts_;
    QLineEdit* txtFind_;
    QLabel* lblFound_;
    diagram::Content::Keys found_;
    std::size_t chosen_ = 0;  // its index among the found ones
};

}  // namespace tessel
