#include "ui/dialogs/about_box.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/controls/connect.h"
#include "ui/controls/image_list.h"
#include "ui/dialogs/dialog.h"
#include "ui/dialogs/fields.h"

namespace tessel {

namespace {

constexpr int titleText = 2110;
constexpr int versionText = 2111;
constexpr int purposeText = 2112;
constexpr int librariesText = 2113;
constexpr int publicDomainText = 2114;

constexpr int pictureSize = 64;
constexpr int widthInCharacters = 45;

// The libraries with their licences; none is the public domain.
constexpr std::pair<const char*, const char*> libraries[] = {{"Qt", "LGPL 3"},
                                                             {"SQLite", nullptr},
                                                             {"pugixml", "MIT"},
                                                             {"{fmt}", "MIT"},
                                                             {"JSON for Modern C++", "MIT"},
                                                             {"CLI11", "BSD 3-Clause"},
                                                             {"Graphviz", "EPL 1.0"}};

QLabel* Picture(const QWidget& dialog) {
    auto* picture = new QLabel;
    picture->setObjectName("imgProduct");
    picture->setPixmap(ProductIcon().pixmap(QSize(pictureSize, pictureSize), dialog.devicePixelRatioF()));
    return picture;
}

QLabel* Heading(const QString& text) {
    QLabel* heading = ValueLabel("lblName", text);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    heading->setFont(font);
    return heading;
}

QString Libraries(const text::Texts& texts) {
    QStringList lines;
    for (const auto& [name, licence] : libraries)
        lines +=
            QStringLiteral("%1 (%2)").arg(name, licence ? licence : Caption(texts.Text(publicDomainText)));
    return lines.join('\n');
}

}  // namespace

void ShowAbout(ComponentState& state, QWidget* owner) {
    const text::Texts& texts = *state.texts;
    const std::string product = texts.Product("ProductName");
    QDialog dialog(owner);
    dialog.setObjectName("frmAbout");
    dialog.setWindowTitle(Caption(texts.Format(titleText, {product})));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    buttons->button(QDialogButtonBox::Ok)->setText(Caption(texts.Text(okText)));
    Connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);

    auto* grid = new QGridLayout(&dialog);
    grid->addWidget(Picture(dialog), 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(Heading(Caption(product)), 0, 1);
    grid->addWidget(ValueLabel("lblVersion", Caption(texts.Format(versionText, {TESSEL_VERSION}))), 1, 1);
    grid->addWidget(ValueLabel("lblPurpose", Caption(texts.Text(purposeText))), 2, 1);
    grid->addWidget(ValueLabel("lblLibraries", Caption(texts.Text(librariesText)) + '\n' + Libraries(texts)),
                    3, 1);
    grid->addWidget(buttons, 4, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(1, dialog.fontMetrics().averageCharWidth() * widthInCharacters);
    dialog.exec();
}

}  // namespace tessel
