#pragma once

#include <cstdint>
#include <string>

#include "schema/component_state.h"

namespace tessel {

// What a new column starts with, as the project keeps it.
struct ColumnDefaults {
    std::int32_t typeID = 1;
    std::string precision = "1";
    std::string scale = "0";
    bool isNullable = true;
    bool withDefault = false;
    std::string defaultValue{};  // kept also while it is not used
};

// A project that keeps none has those above. Throws ErrorKind::Conversion when what it keeps makes no sense.
[[nodiscard]] ColumnDefaults ReadColumnDefaults(ComponentState& state);

void WriteColumnDefaults(ComponentState& state, const ColumnDefaults& defaults);

}  // namespace tessel
