#include "ui/dialogs/diagram_print.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include "tessel/error.h"
#include "ui/dialogs/diagram_formats.h"

namespace tessel {

namespace {

constexpr int pageText = 2665;
constexpr double headHeight = 20;  // points
constexpr int headSize = 9;
constexpr double pointsOfInch = 72;
constexpr QRgb headColour = qRgb(0x40, 0x40, 0x40);
constexpr QRgb frameColour = qRgb(0xC0, 0xC0, 0xC0);

[[noreturn]] void Refuse() { throw Error(ErrorKind::Host, "The printer does not take the pages."); }

void PaintHead(QPainter& painter, double width, const QString& name, const QString& number) {
    QFont font("sans-serif");
    font.setPixelSize(headSize);
    painter.setFont(font);
    painter.setPen(QColor(headColour));
    const QRectF line(0, 0, width, headHeight);
    const QFontMetricsF metrics(font, painter.device());
    const double room = width - 2 * metrics.horizontalAdvance(number);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignTop, metrics.elidedText(name, Qt::ElideRight, room));
    painter.drawText(line, Qt::AlignRight | Qt::AlignTop, number);
}

// Tiles have a frame by which they are cut and put together.
void PaintSheet(QPainter& painter, const PrintJob& job, const Sheet& sheet) {
    painter.save();
    painter.translate(0, headHeight);
    painter.setClipRect(sheet.target);
    job.diagram.PaintPage(painter, sheet.target, sheet.part);
    painter.restore();
    if (!job.percent) return;
    painter.setPen(QPen(QColor(frameColour), 0));
    painter.drawRect(sheet.target.translated(0, headHeight));
}

}  // namespace

QSizeF DrawingArea(const QPageLayout& layout) {
    const QSizeF area = layout.paintRect(QPageLayout::Point).size();
    return {area.width(), area.height() - headHeight};
}

std::vector<Sheet> SheetsOf(const PrintJob& job, const QPageLayout& layout) {
    const QRectF drawing = RectWithMargin(job.diagram);
    if (job.percent) return Tiles(drawing, DrawingArea(layout), *job.percent);
    return {FitSheet(drawing, DrawingArea(layout))};
}

void Print(const PrintJob& job, QPagedPaintDevice& device) {
    const QPageLayout layout = device.pageLayout();
    const std::vector<Sheet> sheets = SheetsOf(job, layout);
    QPainter painter;
    if (!painter.begin(&device)) Refuse();
    painter.scale(device.logicalDpiX() / pointsOfInch, device.logicalDpiY() / pointsOfInch);
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        if (i > 0 && !device.newPage()) Refuse();
        PaintHead(painter, DrawingArea(layout).width(), QString::fromStdString(job.name),
                  QString::fromStdString(
                      job.texts.Format(pageText, {std::to_string(i + 1), std::to_string(sheets.size())})));
        PaintSheet(painter, job, sheets[i]);
    }
    if (!painter.end()) Refuse();
}

std::string PdfPages(const PrintJob& job, const QPageLayout& layout) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QString::fromStdString(job.name));
    writer.setPageLayout(layout);
    Print(job, writer);
    return bytes.toStdString();
}

}  // namespace tessel
