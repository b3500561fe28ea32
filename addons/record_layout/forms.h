#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "import.h"
#include "layout.h"
#include "options.h"
#include "tessel/vntws.h"

namespace tessel::layout {

// A table of the schema.
struct Table {
    std::int32_t tabID = 0;
    std::string name;
};

// In name order.
[[nodiscard]] std::vector<Table> ReadTables(VNTWS& workspace);

// Each asks the user; false or nothing when the user cancelled.

// Lets the user change the options. A table of an existing name that is meant as a new one leaves the target
// without a TabID.
[[nodiscard]] bool AskOptions(VNTWS& workspace, Language language, Options& options, Target& target);

// The number of the record to take, from 0.
[[nodiscard]] std::optional<std::size_t> AskRecord(VNTWS& workspace, Language language, const Layout& layout);

// Shows what would be imported.
[[nodiscard]] bool ShowPreview(VNTWS& workspace, Language language, const Target& target,
                               const std::vector<NewColumn>& columns, const Layout& layout);

}  // namespace tessel::layout
