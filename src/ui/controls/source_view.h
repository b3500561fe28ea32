#pragma once

#include <QPlainTextEdit>

namespace tessel {

// A text to read, with line numbers beside it. The line of the cursor is marked lightly, and the one that the
// text was opened for strongly.
class SourceView : public QPlainTextEdit {
  public:
    explicit SourceView(QWidget* parent = nullptr);

    // The line counts from 1 and is brought into view; one that the text does not have is none.
    void ShowText(const QString& text, int line);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    class Gutter;

    [[nodiscard]] int GutterWidth() const;
    void PlaceGutter();
    void PaintGutter(const QRect& area);
    void MarkLines();

    Gutter* gutter_;
    QTextCursor marked_;  // null when no line is meant
};

}  // namespace tessel
