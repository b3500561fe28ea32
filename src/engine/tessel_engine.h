#pragma once

#include <memory>

#include "schema/component_state.h"

namespace tessel {

// The class that the host makes to start the editor.
class TesselEngine : public Object {
  public:
    explicit TesselEngine(ComponentState& state) : state_(state) {}

    // Starts the editor for the host's current project: finds or makes its schema object and schema database,
    // opens the database and loads the main window. Returns 0 when the window was loaded; 1, after a message
    // to the user, when the editor could not start. The host's own failures, and those of making the
    // database, are thrown. `actionId` and `objectId` are not consulted.
    std::int32_t Run(const std::shared_ptr<host::Frontend>& frontend, const Value& actionId,
                     const Value& objectId);

    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    void FindSchemaObject();
    void SetPaths();
    void MakeDatabase();
    bool OpenDatabase();
    bool LoadMainWindow();

    ComponentState& state_;
};

}  // namespace tessel
