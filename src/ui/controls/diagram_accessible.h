#pragma once

#include "platform/text/texts.h"

namespace tessel {

class DiagramView;

// Lets screen readers find the boxes and links of every DiagramView as its children: named by caption, boxes
// described by their comment. The texts, which outlive the program's windows, say between what a link is.
void OfferDiagramToScreenReaders(const text::Texts& texts);

// That another box or link is current.
void TellScreenReaders(DiagramView& view);

}  // namespace tessel
