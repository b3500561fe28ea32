#include "engine/classes.h"

#include "engine/tessel_engine.h"

namespace tessel {

namespace {

constexpr const char* engineClass = "Tessel.TesselEngine";
constexpr const char* workspaceClass = "Tessel.VNTWS";

}  // namespace

void AddClasses(ClassTable& classes, ComponentState& state) {
    classes.Add(engineClass, [&state] { return std::make_shared<TesselEngine>(state); });
    classes.Add(workspaceClass, [&state] { return WorkspaceOf(state); });
}

void RemoveClasses(ClassTable& classes) {
    classes.Remove(engineClass);
    classes.Remove(workspaceClass);
}

}  // namespace tessel
