#pragma once

#include <QPrintPreviewWidget>
#include <QPrinter>
#include <exception>

#include "ui/dialogs/diagram_print.h"
#include "ui/dialogs/dialog.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QSpinBox;

namespace tessel {

// The dialog frmPrintPreview: the pages, and what the user may choose about them.
class PrintPreview : public Dialog {
  public:
    // What is given outlives the dialog.
    PrintPreview(ComponentState& state, const TDiagram& diagram, const std::string& title);

    // Shows the dialog; throws what printing met with.
    void RunAndPrint();

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    [[nodiscard]] QString OKCaption() const override;
    void showEvent(QShowEvent* event) override;

  private:
    void PreparePaper();
    void AddFields(QFormLayout& form);
    void AddZoomButtons(QFormLayout& form);
    void ConnectFields();
    void Refresh();
    void ShowWholePages();
    [[nodiscard]] bool Confirm() override;
    [[nodiscard]] bool IsPrinterChosen();
    void PrintPages();

    PrintJob job_;
    QPrinter printer_{QPrinter::HighResolution};
    std::exception_ptr failure_;

    QPrintPreviewWidget* pages_;
    QComboBox* cmbLayout_;
    QSpinBox* numScale_;
    QComboBox* cmbPaper_;
    QComboBox* cmbOrientation_;
    QSpinBox* numMargins_;
    QLabel* lblPages_;
};

}  // namespace tessel
