#include "ui/controls/help_page.h"

#include <QEvent>
#include <QTextBlock>
#include <QTextTable>

#include "ui/controls/svg_icon.h"

namespace tessel {

namespace {

constexpr QSize pictureSize(16, 16);
constexpr QColor linkColour(0x2f, 0x7d, 0xe1);  // legible on light and on dark
constexpr qreal paragraphSpace = 6;
constexpr qreal headingSpace = 12;
constexpr qreal cellSpace = 5;

void SpaceParagraph(QTextBlock block) {
    QTextBlockFormat space;
    space.setTopMargin(block.blockFormat().headingLevel() > 1 ? headingSpace : 0);
    space.setBottomMargin(QTextCursor(block).currentTable() ? 0 : paragraphSpace);
    QTextCursor(block).mergeBlockFormat(space);
}

void ColourLinks(QTextDocument& document, const QTextBlock& block) {
    QTextCharFormat link;
    link.setForeground(linkColour);
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextFragment fragment = part.fragment();
        if (!fragment.charFormat().isAnchor()) continue;
        QTextCursor cursor(&document);
        cursor.setPosition(fragment.position());
        cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(link);
    }
}

void SpaceTable(QTextTable& table, const QPalette& palette) {
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setBorderBrush(palette.color(QPalette::Mid));
    format.setCellPadding(cellSpace);
    format.setTopMargin(paragraphSpace);
    format.setBottomMargin(headingSpace);
    table.setFormat(format);
}

}  // namespace

HelpPage::HelpPage(const HelpContents& contents, QWidget* parent)
    : QTextBrowser(parent), contents_(contents) {
    document()->setDocumentMargin(12);
}

void HelpPage::Open(const std::string& page) { setSource(QUrl(QString::fromStdString(page + ".md"))); }

std::string HelpPage::NameOf(const QUrl& source) { return source.path().section('.', 0, 0).toStdString(); }

QVariant HelpPage::loadResource(int type, const QUrl& name) {
    const QString path = name.path();
    if (type == QTextDocument::ImageResource)
        return SvgIcon(":/" + path).pixmap(pictureSize, devicePixelRatioF());
    const HelpTopic* topic = contents_.Find(NameOf(name));
    return topic ? QVariant(QString::fromStdString(topic->text)) : QVariant();
}

void HelpPage::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    QTextBrowser::doSetSource(name, type);
    Dress();
}

// The palette's link colour is made for a light window, and Markdown has no spacing of its own.
void HelpPage::Dress() {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        SpaceParagraph(block);
        ColourLinks(*document(), block);
    }
    for (QTextFrame* frame : document()->rootFrame()->childFrames())
        if (auto* table = qobject_cast<QTextTable*>(frame)) SpaceTable(*table, palette());
    moveCursor(QTextCursor::Start);
}

void HelpPage::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !source().isEmpty()) reload();
}

}  // namespace tessel
