#pragma once

#include <string>

#include "tessel/object.h"

// What the editor asks of the workbench's documentation generator. Everything here throws Error when the
// generator cannot comply.
namespace tessel::host {

// The generator's options node for one page.
class PageOptions : public Object {
  public:
    // "NAME" is the folder of the page below the output folder, "CAPTION" its heading; one that is not there
    // throws ErrorKind::Xml.
    [[nodiscard]] virtual std::string Attribute(const std::string& name) const = 0;
};

// A set of HTML pages in the making. Objects of it also answer to the progress calls StartProgress (action,
// total length), StartStep (act), FinishStep (length) and FinishProgress, by name.
class Generator : public Object {
  public:
    [[nodiscard]] virtual std::string OutputFolder() = 0;  // without a separator at its end

    // HTML for the top of a page's body.
    [[nodiscard]] virtual std::string Heading(const std::string& text) = 0;

    // HTML that shows the diagram of a diagram file, whether or not that file is there. A click on a box
    // calls the page's function Box_onClick with the box's caption.
    [[nodiscard]] virtual std::string DiagramFragment(const std::string& diagramFile,
                                                      const std::string& pageName) = 0;

    virtual void WriteLog(const std::string& line) = 0;
};

}  // namespace tessel::host
