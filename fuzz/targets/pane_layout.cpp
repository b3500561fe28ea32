// The text of an arrangement of panes is taken whole or refused, and what was taken comes out as it went in,
// also after changes. The first line is the text; of the rest three bytes make a change.

#include "ui/controls/pane_layout.h"
#include "fuzz/input.h"

namespace tessel::fuzz {
namespace {

PaneLayout SixPanes() {
    PaneLayout layout;
    for (const char* name : {"Browser", "Properties", "Diagram", "Errors", "Log", "Origin"}) layout.Add(name);
    return layout;
}

void RequireStable(const PaneLayout& layout) {
    PaneLayout other = SixPanes();
    const std::string text = layout.Export();
    const bool whole = layout.Order().size() == layout.Panes().size();
    Require(other.Import(text) == whole, "An exported arrangement is refused: " + text);
    Require(!whole || other.Export() == text, "An arrangement changes on its way: " + text);
}

void Change(PaneLayout& layout, Input& input) {
    const auto pane = [&] { return layout.Panes()[static_cast<unsigned char>(input.Byte()) % 6].name; };
    const char kind = input.Byte();
    const std::string name = pane();
    const std::string other = pane();
    switch (kind % 6) {
        case 0:
            return layout.Dock(name, static_cast<PaneEdge>(kind / 6 & 3), other, 0.25);
        case 1:
            return layout.Dock(name, static_cast<PaneEdge>(kind / 6 & 3), std::nullopt, 0.5);
        case 2:
            return layout.Swap(name, other);
        case 3:
            return layout.SetMaximised(kind & 8 ? name : "");
        case 4:
            return layout.SetVisible(name, (kind & 8) != 0);
        default:
            if (layout.CanGrow(name, PaneDirection::Stacked)) layout.Grow(name, PaneDirection::Stacked, 0.2);
    }
}

}  // namespace
}  // namespace tessel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessel::fuzz;
    Input input(data, size);
    tessel::PaneLayout layout = SixPanes();
    const std::string before = layout.Export();
    if (layout.Import(input.Line()))
        RequireStable(layout);
    else
        Require(layout.Export() == before, "A refused arrangement left something behind.");
    while (!input.IsEmpty()) {
        Succeeds([&] { Change(layout, input); });
        RequireStable(layout);
    }
    return 0;
}
