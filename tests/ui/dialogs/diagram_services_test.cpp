#include "ui/dialogs/diagram_services.h"

#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QMimeData>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QVBoxLayout>

#include "platform/diagram/diagram_file.h"
#include "ui/dialogs/diagram_print.h"
#include "ui/dialogs/dialog_test.h"

namespace tessel::test {

namespace {

namespace fs = std::filesystem;

// A window with a diagram of two boxes, whose bounds are 150 units wide and 30 high.
class DiagramServices : public DialogTest {
  protected:
    DiagramServices() {
        auto* column = new QVBoxLayout(&host);
        column->addWidget(diagram);
        diagram->AddBox("t1", "Country", {10, 20});
        diagram->AddBox("t2", "City", {140, 42});
        for (const char* key : {"t1", "t2"}) {
            diagram->SetBoxWidth(key, 20);
            diagram->SetBoxColour(key, qRgb(0, 255, 255));
        }
        host.setWindowTitle("Host");
        host.show();
    }

    void SaveAs() { SaveDiagramAs(state, *diagram, "Save Diagram", "Schema (A.b)", folder / "Output"); }
    // Accepts the name in the dialog that asks for a file.
    static void Accept(QWidget& widget, const QString& name, int filter) {
        auto& dialog = dynamic_cast<QFileDialog&>(widget);
        dialog.selectNameFilter(dialog.nameFilters()[filter]);
        if (!name.isEmpty()) dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
        static_cast<QDialog&>(dialog).accept();
    }

    // Opens the preview, acts, and prints to the file unless it is empty.
    void Preview(const std::function<void()>& act, const std::string& file = {}) {
        const auto preview = [&] { PreviewDiagram(state, *diagram, "Print Preview"); };
        Use("frmPrintPreview", preview, [&] {
            act();
            if (file.empty()) return;
            WhenOpen("printDialog", [&](QWidget& dialog) {
                auto& printers = *dialog.findChild<QComboBox*>("printers");
                printers.setCurrentIndex(printers.count() - 1);
                dialog.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(file));
                QObject::connect(&static_cast<QDialog&>(dialog), &QDialog::accepted, [&] { whenPrinting(); });
                static_cast<QDialog&>(dialog).accept();
            });
            Click("cmdOK");
        });
    }
    [[nodiscard]] int PageCount() const {
        const int count = In<QPrintPreviewWidget>("Pages").pageCount();
        EXPECT_EQ(In<QLabel>("lblPages").text(), QStringLiteral("Pages: %1").arg(count));
        return count;
    }
    void ChooseItem(const char* combo, int index) const {
        auto& box = In<QComboBox>(combo);
        box.setCurrentIndex(index);
        emit box.activated(index);
    }

    [[nodiscard]] QWidget* Editor() const { return host.findChild<QWidget*>("frmDiagramEditor"); }

    QWidget host;
    TDiagram* diagram = new TDiagram(*state.texts);
    std::function<void()> whenPrinting = [] {};
};

std::string PdfStart(const std::string& path) { return files::ReadFile(path).substr(0, 5); }

int PdfPageCount(const std::string& path) {
    return static_cast<int>(QByteArray::fromStdString(files::ReadFile(path)).count("/Type /Page\n"));
}

// The first page at 192 pixels an inch; null when the machine has no program for it.
QImage PdfPicture(const std::string& path) {
    const QString program = QStandardPaths::findExecutable("pdftoppm");
    if (program.isEmpty()) return {};
    const QString picture = QString::fromStdString(path) + ".picture";
    QProcess::execute(program, {"-r", "192", "-png", "-singlefile", QString::fromStdString(path), picture});
    return QImage(picture + ".png");
}

// White around a blueish box, whose corner is at 3 units of 8 pixels.
void ExpectDrawn(const QImage& picture, const char* what) {
    EXPECT_EQ(picture.size(), QSize(156, 36) * 8) << what;
    EXPECT_EQ(picture.pixel(16, 16), qRgb(255, 255, 255)) << what;
    EXPECT_GT(picture.pixelColor(32, 40).blue(), picture.pixelColor(32, 40).red()) << what;
}

TEST_F(DiagramServices, TheClipboardHoldsAPictureAndADrawing) {
    CopyDiagram(*diagram);
    const QMimeData& content = *QApplication::clipboard()->mimeData();
    ExpectDrawn(content.imageData().value<QImage>(), "clipboard");
    EXPECT_TRUE(content.data("image/svg+xml").contains(">Country</text>"));
}

TEST_F(DiagramServices, TheFormatIsThatOfTheSuffixOrOfTheFilter) {
    const std::tuple<const char*, int, const char*> cases[] = {{"", 0, "Schema (A.b).png"},
                                                               {"drawn.PNG", 2, "drawn.PNG"},
                                                               {"", 1, "Schema (A.b).svg"},
                                                               {"a.v2", 2, "a.v2.pdf"}};
    const fs::path output = folder / "Output";
    for (const auto& [typed, filter, expected] : cases) {
        WhenOpen("saveDialog",
                 [&, typed = typed, filter = filter](QWidget& dialog) { Accept(dialog, typed, filter); });
        SaveAs();
        EXPECT_TRUE(fs::exists(output / expected)) << expected;
    }
    for (const char* name : {"Schema (A.b).png", "drawn.PNG"})
        ExpectDrawn(QImage((output / name).c_str()), name);
    EXPECT_EQ(QSvgRenderer(QString((output / "Schema (A.b).svg").c_str())).defaultSize(), QSize(624, 144));
    EXPECT_EQ(PdfStart(output / "a.v2.pdf"), "%PDF-");
    if (const QImage page = PdfPicture(output / "a.v2.pdf"); !page.isNull()) ExpectDrawn(page, "PDF");
}

TEST_F(DiagramServices, WhatCannotBeSavedIsSaidAndAskedForAnew) {
    const std::string taken = folder / "Output/taken.png";
    fs::create_directories(fs::path(taken).parent_path() / "folder.png");
    files::ReplaceFile(taken, "old");
    questions->Answers({{host::Answer::Cancel}, {host::Answer::OK}});
    const std::pair<const char*, const char*> steps[] = {{"taken", "old"}, {"folder", "old"}, {"taken", ""}};
    std::size_t step = 0;
    const std::function<void(QWidget&)> accept = [&](QWidget& dialog) {
        EXPECT_EQ(files::ReadFile(taken), "old");
        Accept(dialog, steps[step].first, 0);
        if (++step < std::size(steps)) WhenOpen("saveDialog", accept);
    };
    WhenOpen("saveDialog", accept);
    SaveAs();
    const std::string path = folder / "Output/";
    EXPECT_EQ(Told(), (Strings{"e The file " + taken + " is there already. Replace it?",
                               "c Cannot save the diagram in the file " + path + "folder.png.",
                               "e The file " + taken + " is there already. Replace it?"}));
    ExpectDrawn(QImage(taken.c_str()), "replaced");
    EXPECT_EQ(std::distance(fs::directory_iterator(path), {}), 2);  // nothing half written
}

TEST_F(DiagramServices, TilesCoverTheDrawing) {
    const struct {
        QSizeF size;
        int percent;
        int count;
    } cases[] = {{{100, 50}, 100, 1}, {{100.5, 50}, 100, 2}, {{250, 120}, 100, 9}, {{250, 120}, 50, 4}};
    // On 300 by 150 points, which are 100 by 50 units at 100 percent.
    for (const auto& [size, percent, count] : cases) {
        const QRectF drawing({-5, 7}, size);
        const auto sheets = Tiles(drawing, {300, 150}, percent);
        QRectF covered;
        double area = 0;
        for (const Sheet& sheet : sheets) {
            covered |= sheet.part;
            area += sheet.part.width() * sheet.part.height();
            EXPECT_DOUBLE_EQ(sheet.target.width(), sheet.part.width() * 3 * percent / 100);
        }
        EXPECT_EQ(std::ssize(sheets), count);
        EXPECT_EQ(covered, drawing);
        EXPECT_NEAR(area, drawing.width() * drawing.height(), 1e-6);
    }
    EXPECT_EQ(LargestPercent({0, 0, 100, 50}, {300, 150}), 400);
    EXPECT_EQ(LargestPercent({0, 0, 2000, 1000}, {300, 150}), 100);
    EXPECT_EQ(LargestPercent({0, 0, 1e6, 1e6}, {300, 150}), 10);
}

TEST_F(DiagramServices, ThePagesFollowWhatIsChosenAndArePrinted) {
    const std::string file = folder / "pages.pdf";
    const auto act = [&] {
        auto& scale = In<QSpinBox>("numScale");
        EXPECT_EQ(In<QComboBox>("cmbOrientation").currentIndex(), 1);  // the drawing is wide
        EXPECT_EQ(PageCount(), 1);
        EXPECT_FALSE(scale.isEnabled());
        ChooseItem("cmbPaper", 1);   // A4, on which there is room for 277 millimetres
        ChooseItem("cmbLayout", 1);  // 156 units are 165 millimetres at 100 percent
        EXPECT_EQ(PageCount(), 1);
        scale.setValue(200);
        EXPECT_EQ(PageCount(), 2);
        In<QSpinBox>("numMargins").setValue(50);
        EXPECT_EQ(PageCount(), 2);
        ChooseItem("cmbOrientation", 0);
        EXPECT_EQ(PageCount(), 4);
        ChooseItem("cmbPaper", 2);  // A3
        EXPECT_EQ(PageCount(), 2);
    };
    Preview(act, file);
    EXPECT_EQ(PdfStart(file), "%PDF-");
    EXPECT_EQ(PdfPageCount(file), 2);
}

TEST_F(DiagramServices, APrinterThatFailsIsSaid) {
    whenPrinting = [this] { fs::remove_all(folder / "gone"); };
    fs::create_directory(folder / "gone");
    EXPECT_THROW(Preview([] {}, folder / "gone/pages.pdf"), Error);
    QPrinter printer;
    printer.setOutputFileName((folder / "gone/pages.pdf").c_str());
    EXPECT_THROW(Print({.diagram = *diagram, .texts = *state.texts, .name = ""}, printer), Error);
}

TEST_F(DiagramServices, TheEditorTakesTheDiagramAndGivesItBack) {
    const std::string file = folder / "VNT.dgm.xml";
    const auto edit = [&] { EditDiagram(state, *diagram, file); };
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Escape", [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }},
        {"the button", [&] { host.findChild<QPushButton*>("cmdBack")->click(); }},
        {"the window", [&] { host.close(); }}};
    for (const auto& [way, close] : ways) {
        edit();
        EXPECT_TRUE(host.isEnabled() && !QApplication::overrideCursor()) << way;
        ASSERT_TRUE(Editor()) << way;
        EXPECT_EQ(diagram->window(), Editor()) << way;
        edit();
        EXPECT_EQ(host.findChildren<QWidget*>("frmDiagramEditor").size(), 1) << way;
        EXPECT_TRUE(QTest::qWaitForWindowActive(Editor())) << way;
        fs::remove(file);
        close();
        EXPECT_EQ(diagram->parentWidget(), &host) << way;
        EXPECT_EQ(host.layout()->indexOf(diagram), 0) << way;
        EXPECT_TRUE(diagram->isVisibleTo(&host)) << way;
        EXPECT_EQ(diagram::LoadDiagram(file).boxes.size(), 2U) << way;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !Editor(); })) << way;
    }
}

TEST_F(DiagramServices, AnEditorMayNotSaveAndMayEndWithItsWindow) {
    EditDiagram(state, *diagram, folder / "none/VNT.dgm.xml");
    host.setEnabled(false);
    host.close();
    EXPECT_TRUE(Editor()->isAncestorOf(diagram)) << "a window that takes no input refuses to close";
    host.setEnabled(true);
    Editor()->close();
    EXPECT_EQ(Told().size(), 1U);
    EditDiagram(state, *diagram, folder / "VNT.dgm.xml");
}

}  // namespace

}  // namespace tessel::test
