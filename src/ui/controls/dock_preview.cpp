#include "ui/controls/dock_preview.h"

#include <QPainter>

namespace tessel {

namespace {

constexpr double strength = 0.3;
constexpr int border = 2;

}  // namespace

DockPreview::DockPreview(QWidget* parent) : QWidget(parent) {
    setObjectName("dockPreview");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DockPreview::ShowAt(const QRect& place) {
    setGeometry(place);
    setVisible(!place.isEmpty());
    raise();
}

void DockPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
    painter.setPen(QPen(colour, border, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(border / 2, border / 2, -border / 2, -border / 2));
    painter.setOpacity(strength);
    painter.fillRect(rect(), colour);
}

}  // namespace tessel
