#pragma once

#include <string>

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// Reads a diagram file, an XML document with elements such as these, at any depth:
//
//     <box key="t1" caption="Country" comment="" x="0" y="10" width="14" height="8"/>
//     <link key="k1" caption="FK_Country" from="t2" to="t1"><point x="0" y="0"/><point x="0" y="10"/></link>
//
// Everything but a box's key may be missing, what is no number counts as 0, and unknown elements are passed
// over. Throws ErrorKind::File or Xml when the file is no XML document that can be read.
[[nodiscard]] Diagram LoadDiagram(const std::string& path);

}  // namespace tessel::diagram
