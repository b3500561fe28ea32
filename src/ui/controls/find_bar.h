#pragma once

#include <QLineEdit>
#include <QTextDocument>
#include <functional>

class QLabel;

namespace tessel {

// A line under a text in which to look for words. Enter finds the next place and Shift+Enter the one before,
// around the ends of the text; Escape closes the line.
class FindBar : public QWidget {
  public:
    // Looks in the text of the view, a QTextEdit or QPlainTextEdit that outlives the bar.
    template <typename View>
    FindBar(View& view, QWidget* parent)
        : FindBar(view, parent, [&view](const QString& text, QTextDocument::FindFlags flags) {
              return Find(view, text, flags);
          }) {}

    void SetTexts(const QString& prompt, const QString& notFound);
    void Open();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    using Finder = std::function<bool(const QString&, QTextDocument::FindFlags)>;
    FindBar(QWidget& view, QWidget* parent, Finder find);

    template <typename View>
    static bool Find(View& view, const QString& text, QTextDocument::FindFlags flags) {
        if (view.find(text, flags)) return true;
        const QTextCursor before = view.textCursor();
        view.moveCursor(flags & QTextDocument::FindBackward ? QTextCursor::End : QTextCursor::Start);
        if (view.find(text, flags)) return true;
        view.setTextCursor(before);
        return false;
    }

    void FindNext(QTextDocument::FindFlags flags);
    void Close();

    QWidget& view_;
    Finder find_;
    QLineEdit* txtFind_;
    QLabel* lblNotFound_;
    QString notFound_;
};

}  // namespace tessel
