#include "engine/classes.h"

#include "engine/scrivo_add_on.h"
#include "engine/tessel_engine.h"

namespace tessel {

namespace {

constexpr const char* engineClass = "Tessel.TesselEngine";
constexpr const char* workspaceClass = "Tessel.VNTWS";
constexpr const char* reportClass = "Tessel.ScrivoAddOn";

}  // namespace

void AddClasses(ClassTable& classes, ComponentState& state) {
    classes.Add(engineClass, [&state] { return std::make_shared<TesselEngine>(state); });
    classes.Add(workspaceClass, [&state] { return WorkspaceOf(state); });
    classes.Add(reportClass, [&state] { return std::make_shared<ScrivoAddOn>(state); });
}

void RemoveClasses(ClassTable& classes) {
    classes.Remove(engineClass);
    classes.Remove(workspaceClass);
    classes.Remove(reportClass);
}

}  // namespace tessel
