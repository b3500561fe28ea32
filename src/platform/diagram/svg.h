#pragma once

#include <string>

#include "platform/diagram/diagram.h"

namespace tessel::diagram {

// The diagram as an SVG element that can stand in an HTML page. Every box is a link to "#Table:" and its
// caption, and a click on it calls the page's function Box_onClick with its caption, its key and an empty
// text. The style sheet finds a "box" and a "link" each under its class; what it says goes before the colours
// given here.
[[nodiscard]] std::string Svg(const Diagram& diagram, const std::string& title);

// The diagram as an SVG file: in light colours on white, with nothing to click.
[[nodiscard]] std::string SvgFile(const Diagram& diagram, const std::string& title);

// Text as it may stand in HTML and XML, between quotes as well; a control character that may not is a blank.
[[nodiscard]] std::string Escaped(const std::string& text);

}  // namespace tessel::diagram
