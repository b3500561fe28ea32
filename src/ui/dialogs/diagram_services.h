#pragma once

#include <string>

#include "schema/component_state.h"
#include "ui/controls/diagram.h"

// What is done with a diagram as a whole. Dialogs belong to the diagram's window; pictures and pages are in
// light colours and have a margin.
namespace tessel {

// As a picture and as image/svg+xml, for programs that take either.
void CopyDiagram(const TDiagram& diagram);

// Asks for a file, at first for `name` in `folder`, which is made when it is missing, and writes the diagram
// to it as PNG, SVG or PDF. What cannot be written is said, and then asked for anew.
void SaveDiagramAs(ComponentState& state, const TDiagram& diagram, const std::string& title,
                   const std::string& name, const std::string& folder);

// Shows the dialog frmPrintPreview with the pages, from which they are printed. Throws ErrorKind::Host when
// the printer fails, and ErrorKind::File, Full or ReadOnly when the file fails that it prints to.
void PreviewDiagram(ComponentState& state, const TDiagram& diagram, const std::string& title);

// Opens the window frmDiagramEditor, which takes the diagram out of the layout that it stands in and gives it
// back when it closes; it closes with the diagram's window at the latest. It then writes a copy of the
// arrangement to the file. When it is open it comes to the front.
void EditDiagram(ComponentState& state, TDiagram& diagram, const std::string& file);

}  // namespace tessel
