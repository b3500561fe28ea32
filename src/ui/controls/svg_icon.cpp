#include "ui/controls/svg_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace tessel {

namespace {

constexpr const char* lineColour = "#000000";
constexpr const char* accentColour = "#2f7de1";

struct Colours {
    QColor line;
    QColor accent;
};

// An accent that stands out from the text's colour only where it also does from what is behind it.
Colours ColoursOf(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Normal || mode == QIcon::Active)
        return {palette.color(QPalette::Active, QPalette::Text), QColor(accentColour)};
    const QColor text = mode == QIcon::Disabled ? palette.color(QPalette::Disabled, QPalette::Text)
                                                : palette.color(QPalette::Active, QPalette::HighlightedText);
    return {text, text};
}

class SvgIconEngine : public QIconEngine {
  public:
    SvgIconEngine(QString path, QByteArray drawing) : path_(std::move(path)), drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const QSize size = rect.size() * painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(size, mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const Colours colours = ColoursOf(mode);
        const QString key = QStringLiteral("tessel:%1:%2x%3:%4:%5")
                                .arg(path_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(colours.line.name(QColor::HexArgb), colours.accent.name());
        QPixmap pixmap;
        if (!QPixmapCache::find(key, &pixmap)) QPixmapCache::insert(key, pixmap = Drawn(size, colours));
        return pixmap;
    }

    QIconEngine* clone() const override { return new SvgIconEngine(*this); }

  private:
    [[nodiscard]] QPixmap Drawn(const QSize& size, const Colours& colours) const {
        QByteArray drawing = drawing_;
        drawing.replace(lineColour, colours.line.name().toLatin1());
        drawing.replace(accentColour, colours.accent.name().toLatin1());
        QSvgRenderer renderer(drawing);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setOpacity(colours.line.alphaF());
        renderer.render(&painter);
        return pixmap;
    }

    QString path_;
    QByteArray drawing_;
};

}  // namespace

QIcon SvgIcon(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray drawing = file.readAll();
    if (!QSvgRenderer(drawing).isValid()) return {};
    return QIcon(new SvgIconEngine(path, drawing));
}

}  // namespace tessel
