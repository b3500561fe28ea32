#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tessel {

// What one run of the import did to the project's tables.
struct ImportOutcome {
    struct Renamed {
        std::string given;  // as the repository has it: a table, or a column as TABLE.COLUMN
        std::string name;   // as the project has it
    };
    struct LeftOut {
        // A table, a column or an index as TABLE.NAME, or a foreign key; or what one that is there lacks.
        std::string what;
        std::string reason;  // a clause that follows its name and a colon
    };

    std::size_t matched = 0;  // tables that the repository gives the project
    std::vector<std::string> dropped;
    std::vector<std::string> added;
    std::vector<Renamed> renamed;
    std::vector<LeftOut> leftOut;
    std::optional<std::string> failure;  // why the run ended early; what it did before stays
};

}  // namespace tessel
