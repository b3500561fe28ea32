#pragma once

#include "schema/component_state.h"
#include "tessel/component.h"

namespace tessel {

// The component's public classes, all over one state: "Tessel.TesselEngine", "Tessel.VNTWS",
// "Tessel.ScrivoAddOn". Every VNTWS that is made is the same one.
void AddClasses(ClassTable& classes, ComponentState& state);
void RemoveClasses(ClassTable& classes);

}  // namespace tessel
