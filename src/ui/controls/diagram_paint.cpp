#include "ui/controls/diagram_paint.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tessel {

namespace {

using diagram::pixelsOfUnit;

constexpr double captionPixels = diagram::captionSize * pixelsOfUnit;
constexpr double airBesideCaption = 3;

// Below these scales lines lose their heads, boxes are mere spots, and captions are no longer to be read.
constexpr double headsFrom = 0.4;
constexpr double boxesFrom = 0.3;
constexpr double legibleFrom = 0.36;

constexpr double farBeyond = 6;  // what sticks out of an outline or line, in pixels

QRgb Mixed(const QColor& over, const QColor& under, double part) {
    const auto mix = [part](int a, int b) { return int(std::lround(a * part + b * (1 - part))); };
    return qRgb(mix(over.red(), under.red()), mix(over.green(), under.green()),
                mix(over.blue(), under.blue()));
}

diagram::Look LookOf(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    return {base.rgb() & RGB_MASK, text.rgb() & RGB_MASK, Mixed(text, base, 0.55) & RGB_MASK};
}

class Painting {
  public:
    Painting(QPainter& painter, const diagram::Content& content, const QRectF& area,
             const DiagramColours& colours, const DiagramMarks& marks, const QFont& font)
        : painter_(painter),
          content_(content),
          area_(ToUnits(area.adjusted(-farBeyond, -farBeyond, farBeyond, farBeyond))),
          colours_(colours),
          marks_(marks),
          scale_(std::hypot(painter.worldTransform().m11(), painter.worldTransform().m12())),
          font_(font),
          metrics_(SetSize(font_)) {
        painter.setFont(font_);
    }

    void Links() {
        std::vector<const diagram::Link*> plain;
        std::vector<const diagram::Link*> marked;
        for (const diagram::Link& link : content_.Drawing().links)
            if (!link.points.empty() && Overlap(Wide(Bounds(link.points)), area_))
                (IsMarked(link) ? marked : plain).push_back(&link);
        const QColor colour(colours_.look.line);
        PaintLines(plain, colour, 1);
        PaintLines(marked, colours_.highlight, 1.5);
        if (const auto* link = content_.FindLink(marks_.currentLink))
            PaintLines({link}, colours_.highlight, 2.5);
        if (scale_ < headsFrom) return;
        painter_.setRenderHint(QPainter::Antialiasing);
        for (const diagram::Link* link : plain) PaintHead(*link, colour);
        for (const diagram::Link* link : marked) PaintHead(*link, colours_.highlight);
    }

    void Boxes() {
        painter_.setRenderHint(QPainter::Antialiasing, scale_ >= boxesFrom);
        const auto& boxes = content_.Drawing().boxes;
        for (std::size_t i = 0; i < boxes.size(); ++i)
            if (Overlap(content_.Outlines()[i], area_)) PaintBox(boxes[i], ToPixels(content_.Outlines()[i]));
    }

  private:
    static QFont& SetSize(QFont& font) {
        font.setPixelSize(int(captionPixels));
        return font;
    }

    // A line along an axis has no area of its own.
    static diagram::Rect Wide(const diagram::Rect& rect) {
        return {rect.x - 1, rect.y - 1, rect.width + 2, rect.height + 2};
    }

    [[nodiscard]] bool IsMarked(const diagram::Link& link) const {
        return link.key == marks_.currentLink ||
               (!marks_.current.empty() && (link.from == marks_.current || link.to == marks_.current));
    }

    // Lines along the axes are crisp without smoothing, and thin ones are painted much sooner all at once.
    void PaintLines(const std::vector<const diagram::Link*>& links, const QColor& colour, double width) {
        QList<QLineF> lines;
        for (const diagram::Link* link : links)
            for (std::size_t i = 1; i < link->points.size(); ++i)
                lines.append({ToPixels(link->points[i - 1]), ToPixels(link->points[i])});
        constexpr double thin = 0.99;
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.setPen(QPen(colour, std::max(width, thin / scale_), Qt::SolidLine, Qt::SquareCap));
        painter_.drawLines(lines);
    }

    void PaintHead(const diagram::Link& link, const QColor& colour) {
        const auto& points = link.points;
        const QPointF tip = ToPixels(points.back());
        const QPointF from = ToPixels(points[points.size() - std::min<std::size_t>(2, points.size())]);
        const QLineF line(tip, from);
        if (line.length() == 0) return;
        const QPointF along = (from - tip) / line.length() * diagram::headLength * pixelsOfUnit;
        const QPointF aside = QPointF(-along.y(), along.x()) * (diagram::headWidth / diagram::headLength / 2);
        const std::array head{tip, tip + along + aside, tip + along * 0.8, tip + along - aside};
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(colour);
        painter_.drawPolygon(head.data(), int(head.size()));
    }

    void PaintBox(const diagram::Box& box, const QRectF& rect) {
        const bool isSelected = marks_.selected.contains(box.key) || box.key == marks_.target;
        const bool isFound = marks_.found.contains(box.key);
        if (isFound) PaintHalo(rect);
        const QColor border = isSelected ? colours_.highlight : QColor(diagram::BorderColour(box.colour));
        const double width = box.key == marks_.current || box.key == marks_.target ? 2.5 : isSelected ? 2 : 1;
        const QColor fill = isSelected ? QColor(Mixed(colours_.highlight, QColor(colours_.look.paper), 0.18))
                                       : QColor(diagram::FillColour(box.colour, colours_.look));
        if (scale_ < boxesFrom) {
            painter_.fillRect(rect, isFound ? colours_.mark : border);
            return;
        }
        painter_.setPen(QPen(border, width));
        painter_.setBrush(fill);
        painter_.drawRoundedRect(rect, diagram::cornerRadius * pixelsOfUnit,
                                 diagram::cornerRadius * pixelsOfUnit);
        if (scale_ >= legibleFrom) PaintCaption(QString::fromStdString(box.caption), rect);
    }

    void PaintHalo(const QRectF& rect) {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(colours_.mark);
        painter_.drawRoundedRect(rect.adjusted(-5, -5, 5, 5), 6, 6);
    }

    // A caption that the font makes wider than its box is set narrower.
    void PaintCaption(const QString& caption, const QRectF& rect) {
        const double room = rect.width() - 2 * airBesideCaption;
        const double wanted = metrics_.horizontalAdvance(caption);
        const double squeeze = std::min(1.0, room / wanted);
        const double baseline = rect.center().y() + (metrics_.ascent() - metrics_.descent()) / 2;
        painter_.setPen(QColor(colours_.look.ink));
        if (squeeze == 1) {
            painter_.drawText(QPointF(rect.center().x() - wanted / 2, baseline), caption);
            return;
        }
        painter_.save();
        painter_.translate(rect.left() + airBesideCaption, baseline);
        painter_.scale(squeeze, 1);
        painter_.drawText(QPointF(), caption);
        painter_.restore();
    }

    QPainter& painter_;
    const diagram::Content& content_;
    diagram::Rect area_;
    const DiagramColours& colours_;
    const DiagramMarks& marks_;
    double scale_;
    QFont font_;
    QFontMetricsF metrics_;
};

}  // namespace

QRectF ToPixels(const diagram::Rect& rect) {
    return {rect.x * pixelsOfUnit, rect.y * pixelsOfUnit, rect.width * pixelsOfUnit,
            rect.height * pixelsOfUnit};
}

QPointF ToPixels(diagram::Point point) { return {point.x * pixelsOfUnit, point.y * pixelsOfUnit}; }

diagram::Rect ToUnits(const QRectF& rect) {
    return {rect.x() / pixelsOfUnit, rect.y() / pixelsOfUnit, rect.width() / pixelsOfUnit,
            rect.height() / pixelsOfUnit};
}

diagram::Point ToUnits(QPointF point) { return {point.x() / pixelsOfUnit, point.y() / pixelsOfUnit}; }

DiagramColours::DiagramColours(const diagram::Look& paperAndInk)
    : look(paperAndInk), highlight(0x2F, 0x7D, 0xE1), mark(0xFF, 0xC8, 0x3D) {}

DiagramColours::DiagramColours(const QPalette& palette)
    : look(LookOf(palette)), highlight(palette.color(QPalette::Highlight)), mark(0xFF, 0xC8, 0x3D) {}

void PaintDiagram(QPainter& painter, const diagram::Content& content, const QRectF& area,
                  const DiagramColours& colours, const DiagramMarks& marks, const QFont& font) {
    painter.save();
    Painting painting(painter, content, area, colours, marks, font);
    painting.Links();
    painting.Boxes();
    painter.restore();
}

}  // namespace tessel
