#include "ui/controls/source_view.h"

#include <QEvent>
#include <QFontDatabase>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

namespace tessel {

namespace {

constexpr int air = 6;  // on both sides of a line number
constexpr int fewestDigits = 3;

// So much of the colour over the base, 0 to 1.
QColor Blended(const QPalette& palette, QPalette::ColorRole colour, qreal part) {
    const QColor over = palette.color(colour);
    const QColor base = palette.color(QPalette::Base);
    const auto mix = [part](qreal above, qreal below) { return above * part + below * (1 - part); };
    return QColor::fromRgbF(float(mix(over.redF(), base.redF())), float(mix(over.greenF(), base.greenF())),
                            float(mix(over.blueF(), base.blueF())));
}

QTextEdit::ExtraSelection WholeLine(const QTextCursor& cursor, const QColor& colour) {
    QTextEdit::ExtraSelection selection;
    selection.cursor = cursor;
    selection.format.setBackground(colour);
    selection.format.setProperty(QTextFormat::FullWidthSelection, true);
    return selection;
}

}  // namespace

class SourceView::Gutter : public QWidget {
  public:
    explicit Gutter(SourceView& view) : QWidget(&view), view_(view) {}

  protected:
    void paintEvent(QPaintEvent* event) override { view_.PaintGutter(event->rect()); }

  private:
    SourceView& view_;
};

SourceView::SourceView(QWidget* parent) : QPlainTextEdit(parent), gutter_(new Gutter(*this)) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setLineWrapMode(NoWrap);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(this, &QPlainTextEdit::blockCountChanged, this, &SourceView::PlaceGutter);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &SourceView::MarkLines);
    connect(this, &QPlainTextEdit::updateRequest, gutter_, qOverload<>(&QWidget::update));
    PlaceGutter();
}

void SourceView::ShowText(const QString& text, int line) {
    marked_ = QTextCursor();
    setPlainText(text);
    if (const QTextBlock block = document()->findBlockByNumber(line - 1); line > 0 && block.isValid()) {
        marked_ = QTextCursor(block);
        setTextCursor(marked_);
        centerCursor();
    }
    MarkLines();
}

void SourceView::MarkLines() {
    QTextCursor current = textCursor();
    current.clearSelection();
    QList selections{WholeLine(current, Blended(palette(), QPalette::Text, 0.06))};
    if (!marked_.isNull()) selections << WholeLine(marked_, Blended(palette(), QPalette::Highlight, 0.35));
    setExtraSelections(selections);
}

int SourceView::GutterWidth() const {
    const auto digits = std::max<qsizetype>(fewestDigits, QString::number(blockCount()).size());
    return fontMetrics().horizontalAdvance('9') * int(digits) + 2 * air;
}

void SourceView::PlaceGutter() {
    setViewportMargins(GutterWidth(), 0, 0, 0);
    const QRect inner = contentsRect();
    gutter_->setGeometry(inner.left(), inner.top(), GutterWidth(), inner.height());
}

void SourceView::PaintGutter(const QRect& area) {
    QPainter painter(gutter_);
    painter.fillRect(area, Blended(palette(), QPalette::Text, 0.04));
    painter.setPen(Blended(palette(), QPalette::Text, 0.6));
    painter.setFont(font());
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRect line = blockBoundingGeometry(block).translated(contentOffset()).toRect();
        if (line.top() > area.bottom()) break;
        painter.drawText(0, line.top(), GutterWidth() - air, fontMetrics().height(), Qt::AlignRight,
                         QString::number(block.blockNumber() + 1));
    }
}

void SourceView::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    PlaceGutter();
    if (!marked_.isNull() && textCursor() == marked_) centerCursor();
}

void SourceView::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) MarkLines();
    if (event->type() == QEvent::FontChange) PlaceGutter();
}

}  // namespace tessel
