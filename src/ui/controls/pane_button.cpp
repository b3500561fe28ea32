#include "ui/controls/pane_button.h"

#include <QPainter>
#include <QTextDocument>
#include <cmath>

namespace tessel {

namespace {

constexpr int air = 4;
constexpr double hoverStrength = 0.2;
constexpr double pressedStrength = 0.35;

void DrawMaximise(QPainter& painter, const QRectF& place) {
    painter.drawRect(place);
    painter.drawLine(place.topLeft() + QPointF(0, 1), place.topRight() + QPointF(0, 1));
}

void DrawRestore(QPainter& painter, const QRectF& place) {
    const double shift = std::round(place.width() / 3);
    const QRectF front(place.topLeft() + QPointF(0, shift), place.bottomRight() - QPointF(shift, 0));
    painter.drawRect(front);
    painter.drawPolyline(QList<QPointF>{
        front.topLeft() + QPointF(shift, 0), place.topLeft() + QPointF(shift, 0), place.topRight(),
        place.bottomRight() - QPointF(0, shift), front.bottomRight() - QPointF(0, shift)});
}

void DrawClose(QPainter& painter, const QRectF& place) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(painter.pen().color(), 1.5));
    painter.drawLine(place.topLeft(), place.bottomRight());
    painter.drawLine(place.bottomLeft(), place.topRight());
}

}  // namespace

PaneButton::PaneButton(const char* name, Sign sign, QWidget* parent) : QAbstractButton(parent), sign_(sign) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

void PaneButton::SetSign(Sign sign, const QString& meaning) {
    sign_ = sign;
    setToolTip(Qt::convertFromPlainText(meaning, Qt::WhiteSpaceNormal));  // it names a pane
    setAccessibleName(meaning);
    update();
}

QSize PaneButton::sizeHint() const {
    const int side = fontMetrics().height() + air;
    return {side, side};
}

// On whole pixels, so that the lines are sharp.
QRectF PaneButton::SignPlace() const {
    const double side = std::round(std::min(width(), height()) * 0.45);
    return {std::floor((width() - side) / 2) + 0.5, std::floor((height() - side) / 2) + 0.5, side, side};
}

void PaneButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ink = palette().color(foregroundRole());
    if (underMouse()) {
        painter.setOpacity(isDown() ? pressedStrength : hoverStrength);
        painter.fillRect(rect(), ink);
        painter.setOpacity(1);
    }
    painter.setPen(QPen(ink, 1));
    switch (sign_) {
        case Sign::Maximise:
            return DrawMaximise(painter, SignPlace());
        case Sign::Restore:
            return DrawRestore(painter, SignPlace());
        case Sign::Close:
            return DrawClose(painter, SignPlace());
    }
}

}  // namespace tessel
