#include "ui/dialogs/diagram_preview.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <cmath>

#include "platform/files/file_service.h"
#include "ui/controls/connect.h"
#include "ui/dialogs/diagram_formats.h"
#include "ui/dialogs/diagram_services.h"
#include "ui/rules/help_contexts.h"

namespace tessel {

namespace {

constexpr int schemaText = 606;
constexpr int printText = 2655;
constexpr int layoutText = 2656;
constexpr int onePageText = 2657;
constexpr int tilesText = 2658;
constexpr int scaleText = 2659;
constexpr int paperText = 2660;
constexpr int orientationText = 2661;
constexpr int portraitText = 2662;
constexpr int landscapeText = 2663;
constexpr int marginsText = 2664;
constexpr int zoomInText = 2666;
constexpr int zoomOutText = 2667;
constexpr int wholePagesText = 2668;
constexpr int pageCountText = 2669;

constexpr int usualPercent = 100;
constexpr int usualMargins = 10;  // millimetres
constexpr int largestMargins = 50;
constexpr QSize sizeInCharacters(120, 45);

constexpr QPageSize::PageSizeId papers[] = {QPageSize::A5,     QPageSize::A4,    QPageSize::A3,
                                            QPageSize::A2,     QPageSize::A1,    QPageSize::A0,
                                            QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};

int MarginsOf(const QPrinter& printer) {
    return static_cast<int>(std::lround(printer.pageLayout().margins(QPageLayout::Millimeter).left()));
}

void SetMargins(QPrinter& printer, double millimetres) {
    printer.setPageMargins({millimetres, millimetres, millimetres, millimetres}, QPageLayout::Millimeter);
}

}  // namespace

PrintPreview::PrintPreview(ComponentState& state, const TDiagram& diagram, const std::string& title)
    : Dialog(state, "frmPrintPreview", help_context::diagram, diagram.window()),
      job_{.diagram = diagram,
           .texts = *state.texts,
           .name = state.texts->Text(schemaText) + " - " + state.projectName},
      pages_(new QPrintPreviewWidget(&printer_)),
      cmbLayout_(new QComboBox),
      numScale_(new QSpinBox),
      cmbPaper_(new QComboBox),
      cmbOrientation_(new QComboBox),
      numMargins_(new QSpinBox),
      lblPages_(new QLabel) {
    setWindowTitle(Caption(title));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    PreparePaper();
    pages_->setObjectName("Pages");
    auto* row = new QHBoxLayout;
    auto* form = new QFormLayout;
    row->addWidget(pages_, 1);
    row->addLayout(form);
    Body().addLayout(row);
    AddFields(*form);
    AddZoomButtons(*form);
    ConnectFields();
}

void PrintPreview::PreparePaper() {
    const QRectF drawing = RectWithMargin(job_.diagram);
    printer_.setDocName(QString::fromStdString(job_.name));
    printer_.setPageOrientation(drawing.width() > drawing.height() ? QPageLayout::Landscape
                                                                   : QPageLayout::Portrait);
    SetMargins(printer_, usualMargins);
}

void PrintPreview::AddFields(QFormLayout& form) {
    form.setRowWrapPolicy(QFormLayout::WrapAllRows);
    const std::tuple<int, QWidget*, const char*> fields[] = {
        {layoutText, cmbLayout_, "cmbLayout"},
        {scaleText, numScale_, "numScale"},
        {paperText, cmbPaper_, "cmbPaper"},
        {orientationText, cmbOrientation_, "cmbOrientation"},
        {marginsText, numMargins_, "numMargins"}};
    for (const auto& [text, field, name] : fields) {
        field->setObjectName(name);
        form.addRow(Text(text), field);
    }
    cmbLayout_->addItems({Text(onePageText), Text(tilesText)});
    numScale_->setSuffix("%");
    numScale_->setSingleStep(10);
    numScale_->setMaximum(usualPercent);
    numScale_->setValue(usualPercent);
    for (const auto paper : papers) cmbPaper_->addItem(QPageSize::name(paper), paper);
    if (const QPageSize own = printer_.pageLayout().pageSize(); cmbPaper_->findData(own.id()) < 0)
        cmbPaper_->addItem(own.name(), own.id());
    cmbOrientation_->addItems({Text(portraitText), Text(landscapeText)});
    numMargins_->setSuffix(" mm");
    numMargins_->setMaximum(largestMargins);
    lblPages_->setObjectName("lblPages");
    form.addRow(lblPages_);
}

void PrintPreview::AddZoomButtons(QFormLayout& form) {
    const auto add = [&](const char* name, int text, const QKeySequence& key, const auto& act) {
        auto* button = new QPushButton(Text(text));
        button->setObjectName(name);
        button->setAutoDefault(false);
        form.addRow(button);
        Connect(button, &QPushButton::clicked, pages_, act);
        Connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
    };
    add("cmdZoomIn", zoomInText, QKeySequence::ZoomIn, [this] { pages_->zoomIn(); });
    add("cmdZoomOut", zoomOutText, QKeySequence::ZoomOut, [this] { pages_->zoomOut(); });
    add("cmdWholePages", wholePagesText, Qt::CTRL | Qt::Key_0, [this] { ShowWholePages(); });
}

void PrintPreview::ConnectFields() {
    Connect(pages_, &QPrintPreviewWidget::paintRequested, this, [this] { Print(job_, printer_); });
    Connect(cmbLayout_, &QComboBox::activated, this, [this](int index) {
        job_.percent = index == 0 ? std::nullopt : std::optional(numScale_->value());
        Refresh();
    });
    Connect(numScale_, &QSpinBox::valueChanged, this, [this](int value) {
        if (!job_.percent || *job_.percent == value) return;
        job_.percent = value;
        Refresh();
    });
    Connect(cmbPaper_, &QComboBox::activated, this, [this] {
        printer_.setPageSize(QPageSize(cmbPaper_->currentData().value<QPageSize::PageSizeId>()));
        Refresh();
    });
    Connect(cmbOrientation_, &QComboBox::activated, this, [this](int index) {
        printer_.setPageOrientation(index == 0 ? QPageLayout::Portrait : QPageLayout::Landscape);
        Refresh();
    });
    Connect(numMargins_, &QSpinBox::valueChanged, this, [this](int value) {
        if (value == MarginsOf(printer_)) return;
        SetMargins(printer_, value);
        Refresh();
    });
}

// The printer has the last word on the paper, and the paper on the largest scale.
void PrintPreview::Refresh() {
    const QPageLayout layout = printer_.pageLayout();
    cmbLayout_->setCurrentIndex(job_.percent ? 1 : 0);
    numScale_->setEnabled(job_.percent.has_value());
    numScale_->setRange(smallestPercent, LargestPercent(RectWithMargin(job_.diagram), DrawingArea(layout)));
    cmbPaper_->setCurrentIndex(cmbPaper_->findData(layout.pageSize().id()));
    cmbOrientation_->setCurrentIndex(layout.orientation() == QPageLayout::Portrait ? 0 : 1);
    numMargins_->setValue(MarginsOf(printer_));
    lblPages_->setText(
        Caption(State().texts->Format(pageCountText, {std::to_string(SheetsOf(job_, layout).size())})));
    pages_->updatePreview();
    ShowWholePages();
}

void PrintPreview::ShowWholePages() {
    if (job_.percent)
        pages_->setAllPagesViewMode();
    else
        pages_->setSinglePageViewMode();
    pages_->fitInView();
}

void PrintPreview::showEvent(QShowEvent* event) {
    Dialog::showEvent(event);
    Refresh();
}

QString PrintPreview::OKCaption() const { return Text(printText); }

QSize PrintPreview::sizeHint() const {
    return {sizeInCharacters.width() * fontMetrics().averageCharWidth(),
            sizeInCharacters.height() * fontMetrics().height()};
}

void PrintPreview::RunAndPrint() {
    if (Run() && failure_) std::rethrow_exception(failure_);
}

bool PrintPreview::Confirm() {
    if (!IsPrinterChosen()) {
        Refresh();
        return false;
    }
    try {
        PrintPages();
    } catch (const std::exception&) {
        failure_ = std::current_exception();
    }
    return true;
}

bool PrintPreview::IsPrinterChosen() {
    QPrintDialog dialog(&printer_, this);
    dialog.setObjectName("printDialog");
    dialog.setOption(QPrintDialog::PrintPageRange, false);
    return dialog.exec() == QDialog::Accepted;
}

void PrintPreview::PrintPages() {
    const std::string file = printer_.outputFileName().toStdString();
    if (!file.empty()) return files::ReplaceFile(file, PdfPages(job_, printer_.pageLayout()));
    Print(job_, printer_);
    if (printer_.printerState() == QPrinter::Error)
        throw Error(ErrorKind::Host, "The printer " + printer_.printerName().toStdString() + " has failed.");
}

void PreviewDiagram(ComponentState& state, const TDiagram& diagram, const std::string& title) {
    PrintPreview(state, diagram, title).RunAndPrint();
}

}  // namespace tessel
