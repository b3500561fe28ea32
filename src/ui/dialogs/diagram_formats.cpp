#include "ui/dialogs/diagram_formats.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

#include "platform/diagram/look.h"
#include "tessel/error.h"

namespace tessel {

namespace {

constexpr double pixelsPerUnit = 2 * diagram::pixelsOfUnit;
constexpr double mostPixels = 40e6;
constexpr double mostPixelsOfSide = 16000;
constexpr double mostPoints = 14400;  // of a side of a PDF page, beyond which viewers give up
constexpr double unitsPerMetre = 72 / 0.0254 / pointsOfUnit;

static_assert(pointsOfUnit == diagram::pixelsOfUnit * 72 / 96);

double LongSide(const QRectF& rect) { return std::max(rect.width(), rect.height()); }

std::string Png(const TDiagram& diagram, const std::string&) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!SharpPicture(diagram).save(&buffer, "PNG"))
        throw Error(ErrorKind::Host, "The picture cannot be encoded as PNG.");
    return bytes.toStdString();
}

std::string Svg(const TDiagram& diagram, const std::string& title) { return diagram.SvgPicture(title); }

// Pages are whole points wide and high, so a little more of the margin is seen.
std::string Pdf(const TDiagram& diagram, const std::string& title) {
    const QRectF drawn = RectWithMargin(diagram);
    const double scale = std::min(pointsOfUnit, mostPoints / LongSide(drawn));
    const QSizeF page(std::ceil(drawn.width() * scale), std::ceil(drawn.height() * scale));
    QRectF part({}, page / scale);
    part.moveCenter(drawn.center());

    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QString::fromStdString(title));
    writer.setPageSize(QPageSize(page, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter(&writer);
    diagram.PaintPage(painter, QRectF(0, 0, writer.width(), writer.height()), part);
    painter.end();
    return bytes.toStdString();
}

constexpr DiagramFormat formats[] = {{".png", 2650, Png}, {".svg", 2651, Svg}, {".pdf", 2652, Pdf}};

}  // namespace

QRectF RectWithMargin(const TDiagram& diagram) {
    constexpr double margin = diagram::margin;
    return diagram.BoundingRect().adjusted(-margin, -margin, margin, margin);
}

QImage SharpPicture(const TDiagram& diagram) {
    const QRectF drawn = RectWithMargin(diagram);
    const double scale = std::min({pixelsPerUnit, mostPixelsOfSide / LongSide(drawn),
                                   std::sqrt(mostPixels / (drawn.width() * drawn.height()))});
    QImage picture = diagram.Picture(scale);
    if (picture.isNull()) throw Error(ErrorKind::Host, "The picture does not fit in memory.");
    picture.setDotsPerMeterX(static_cast<int>(std::lround(scale * unitsPerMetre)));
    picture.setDotsPerMeterY(picture.dotsPerMeterX());
    return picture;
}

std::span<const DiagramFormat> DiagramFormats() { return formats; }

}  // namespace tessel
