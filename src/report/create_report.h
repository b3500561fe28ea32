#pragma once

#include <string>

#include "host/frontend.h"
#include "host/generator.h"
#include "schema/component_state.h"

namespace tessel {

// What a report is made from. The schema database is open and the type catalogue loaded.
struct ReportTask {
    ComponentState& state;
    host::Frontend& host;
    std::string schemaName;  // of the schema object in the host's repository; names the diagram file
    host::Generator& generator;
    const host::PageOptions& options;
    Object& progress;  // answers to StartProgress, StartStep, FinishStep and FinishProgress by name
};

// Writes the page Main.htm, which describes the whole schema, into the page's folder below the generator's
// output folder, in place of an earlier one. The folder is made if need be, the two pictures are put beside
// the page. Any failure but that of a picture is thrown, and leaves a page that is written in part.
void CreateReport(const ReportTask& task);

}  // namespace tessel
