#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "schema/component_state.h"

namespace tessel {

// The commands on tables. They ask and tell the user what is needed. What they did, and a new name that was
// refused to a table, is a line in the host's activity log.
class TableCommands {
  public:
    explicit TableCommands(ComponentState& state) : state_(state) {}

    // Asks for a name and makes the table; its TabID.
    [[nodiscard]] std::optional<std::int32_t> New();

    // Drops the table if the user agrees; whether it was dropped.
    bool Delete(std::int32_t tabID, const std::string& name);

    // Asks for the new name and gives it to the table, unless it is the old one.
    void AskAndRename(std::int32_t tabID, const std::string& name);

    // Gives the table its new name; false, after a message, when the name is refused.
    [[nodiscard]] bool Rename(std::int32_t tabID, const std::string& name, const std::string& newName);

  private:
    ComponentState& state_;
};

}  // namespace tessel
