#pragma once

#include <QPagedPaintDevice>
#include <optional>
#include <string>

#include "ui/controls/diagram.h"
#include "ui/dialogs/diagram_sheets.h"

// A diagram on pages, each under a line with a name and the number of the page.
namespace tessel {

struct PrintJob {
    const TDiagram& diagram;
    const text::Texts& texts;
    std::string name;
    std::optional<int> percent{};  // of the tiles; all on one page when there is none
};

// Where the drawing may stand on a page of this layout, in points.
[[nodiscard]] QSizeF DrawingArea(const QPageLayout& layout);

[[nodiscard]] std::vector<Sheet> SheetsOf(const PrintJob& job, const QPageLayout& layout);

// The pages in the device's layout. Throws ErrorKind::Host when the device does not take them.
void Print(const PrintJob& job, QPagedPaintDevice& device);

// The pages as a PDF file.
[[nodiscard]] std::string PdfPages(const PrintJob& job, const QPageLayout& layout);

}  // namespace tessel
