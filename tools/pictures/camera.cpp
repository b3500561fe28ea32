#include "camera.h"

#include <QApplication>
#include <QPalette>
#include <QTimer>

namespace tessel::pictures {

void Camera::Take(QWidget& window, const QString& name) const {
    QApplication::processEvents();
    window.grab().save(folder_ + '/' + name + ".png");
}

void Camera::TakeModal(const char* window, const QString& name, const std::function<void()>& open,
                       const std::function<void(QWidget&)>& act) const {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        for (QWidget* shown : QApplication::topLevelWidgets()) {
            if (shown->objectName() != window || !shown->isVisible()) continue;
            timer.stop();
            act(*shown);
            Take(*shown, name);
            return void(shown->close());
        }
    });
    timer.start(20);
    open();
}

void UseDarkColours() {
    const QColor window(45, 47, 51), base(30, 31, 34), text(223, 225, 229), faint(120, 122, 128);
    QPalette palette(text, window, window.lighter(130), window.darker(150), faint, text, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Highlight, QColor(53, 116, 196));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 165, 255));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    QApplication::setPalette(palette);
}

}  // namespace tessel::pictures
