#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "schema/component_state.h"
#include "tessel/date_time.h"

namespace tessel {

// What the table dialog shows and writes.
class TableDialog {
  public:
    // The table's properties; nothing, after a message, when there is no such table.
    [[nodiscard]] static std::optional<TableDialog> Open(ComponentState& state, std::int32_t tableId);

    std::string tableName;
    std::optional<DateTime> created;
    std::string
        legacyName;  // the label of the host's object that the table was taken from, or that there is none
    std::string storageOption;
    std::string comment;

    // Stores the storage option and the comment as they now stand; false, after a message, when they cannot
    // be.
    [[nodiscard]] bool Write();

  private:
    TableDialog(ComponentState& state, std::int32_t tableId) : state_(&state), tableId_(tableId) {}

    ComponentState* state_;
    std::int32_t tableId_;
};

}  // namespace tessel
