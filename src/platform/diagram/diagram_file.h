#pragma once

#include <optional>
#include <string>

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// What a window shows of a diagram.
struct Sight {
    int zoom = 100;  // percent
    Point middle{};  // of what is seen
    bool operator==(const Sight&) const = default;
};

// Reads a diagram file, an XML document with elements such as these, at any depth:
//
//     <box key="t1" caption="Country" comment="" x="0" y="10" width="14" height="8"/>
//     <link key="k1" caption="FK_Country" from="t2" to="t1"><point x="0" y="0"/><point x="0" y="10"/></link>
//
// Everything but a box's key may be missing, what is no number counts as 0, and unknown elements are passed
// over. Of several boxes or links with one key the first counts. Throws ErrorKind::File or Xml when the file
// is no XML document that can be read.
[[nodiscard]] Diagram LoadDiagram(const std::string& path);

struct StoredDiagram {
    Diagram diagram{};
    std::optional<Sight> sight{};  // the attributes zoom, x and y of the root, where all are numbers
};
[[nodiscard]] StoredDiagram LoadStoredDiagram(const std::string& path);  // throws as LoadDiagram does

// Brings an existing file up to date, or makes a new one: everything in it but the boxes, the links and what
// is seen stays as it is, also attributes and elements within boxes and links. Control characters in captions
// and comments become blanks. A damaged file is kept aside first. Throws ErrorKind::File, Full or ReadOnly.
void SaveDiagram(const std::string& path, const Diagram& diagram, const Sight& sight);

// Puts a file aside under the first free name of NAME.damaged-1.xml, NAME.damaged-2.xml, ..., where the
// path is NAME.xml. Throws as files::PlaceNewFile does.
void KeepAside(const std::string& path);

}  // namespace tessel::diagram
