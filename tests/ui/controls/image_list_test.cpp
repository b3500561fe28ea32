#include "ui/controls/image_list.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPalette>

#include "ui/controls/svg_icon.h"

namespace tessel::test {

namespace {

QImage Drawn(const QIcon& icon, int size, QIcon::Mode mode = QIcon::Normal, qreal ratio = 1) {
    return icon.pixmap(QSize(size, size), ratio, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

bool HasColour(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour) return true;
    return false;
}

}  // namespace

TEST(ImageListTest, HasADrawingForEachKey) {
    const struct {
        ImageList images;
        QStringList keys;
    } lists[] = {
        {BrowserImages(),
         {"tables", "files", "file", "table", "key", "foreign", "notnull", "record", "map", "index", "index1",
          "up", "down"}},
        {ToolbarImages(),
         {"Diagram", "NewTable", "NewFile", "Verify", "DataImport", "TableImport", "Lock", "Zoom", "Save",
          "Generate", "Execute", "Options", "Report", "Browser"}},
        {ErrorImages(), {"Table", "Column", "Key"}},
        {DiagramImages(), {"Print", "Save", "Copy", "Place", "Zoom100", "Search", "Edit"}},
    };
    for (const auto& [images, keys] : lists) {
        QList<QImage> drawings;
        for (const QString& key : keys) {
            const QImage drawing = Drawn(images.Icon(key), 16);
            EXPECT_TRUE(HasColour(drawing, QColor("#2f7de1"))) << key.toStdString();
            EXPECT_FALSE(drawings.contains(drawing)) << key.toStdString() << " is drawn like another";
            drawings << drawing;
        }
        EXPECT_TRUE(images.Icon("none").isNull());
    }
    EXPECT_FALSE(ProductIcon().isNull());
}

TEST(ImageListTest, TakesIconsFromFiles) {
    ImageList images = BrowserImages();
    images.Add("DBSchema", TESSEL_SHARE "/Icons/DBSchema.svg");
    EXPECT_FALSE(images.Icon("DBSchema").isNull());
    images.Add("none", TESSEL_SHARE "/Icons/none.svg");
    images.Add("text", TESSEL_SHARE "/texts/en.txt");
    EXPECT_TRUE(images.Icon("none").isNull() && images.Icon("text").isNull());
}

TEST(SvgIconTest, FollowsPaletteModeSizeAndScale) {
    const QPalette before = QApplication::palette();
    const QIcon icon = BrowserImages().Icon("table");
    QPalette palette = before;
    palette.setColor(QPalette::Active, QPalette::Text, QColor(1, 2, 3));
    palette.setColor(QPalette::Active, QPalette::HighlightedText, QColor(4, 5, 6));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(7, 8, 9));
    QApplication::setPalette(palette);
    EXPECT_TRUE(HasColour(Drawn(icon, 16), QColor(1, 2, 3)));
    EXPECT_TRUE(HasColour(Drawn(icon, 16, QIcon::Selected), QColor(4, 5, 6)));
    EXPECT_FALSE(HasColour(Drawn(icon, 16, QIcon::Selected), QColor("#2f7de1")));
    EXPECT_TRUE(HasColour(Drawn(icon, 16, QIcon::Disabled), QColor(7, 8, 9)));
    EXPECT_EQ(Drawn(icon, 16, QIcon::Normal, 2).size(), QSize(32, 32));
    EXPECT_NE(Drawn(icon, 16, QIcon::Normal, 2), Drawn(icon, 16).scaled(32, 32));
    QApplication::setPalette(before);
    EXPECT_FALSE(HasColour(Drawn(icon, 16), QColor(1, 2, 3)));
}

}  // namespace tessel::test
