#pragma once

#include <memory>
#include <string>

#include "host/generator.h"
#include "schema/component_state.h"

namespace tessel {

// The class that the host's documentation generator makes to get the page of a project's schema.
class ScrivoAddOn : public Object {
  public:
    explicit ScrivoAddOn(ComponentState& state) : state_(state) {}

    // Finds the schema object of the host's current project, opens its database, which becomes the
    // component's, and writes the page. Returns 0 when the page is written; 1, after a line in the
    // generator's log, when the project has no schema object or the database does not open; -1 when there is
    // no file at the database's path. What fails while the page is written is thrown.
    std::int32_t Run(const std::shared_ptr<host::Frontend>& anCVWS,
                     const std::shared_ptr<host::Generator>& anCV3,
                     const std::shared_ptr<host::PageOptions>& optionsRoot);

    // Why the last Run could not open the database; empty when it could.
    [[nodiscard]] const std::string& WhyNotOpened() const { return whyNotOpened_; }

    // Writes the page of the open schema database, into the folder that the options node names; `aProgress`
    // answers to the progress calls by name. The type catalogue must be loaded, and the host known: from a
    // Run that goes on, or from the start of the editor.
    void CreateReport(const std::shared_ptr<host::Generator>& cv3,
                      const std::shared_ptr<host::PageOptions>& optionsRoot,
                      const std::shared_ptr<Object>& aProgress);

    // The ColumnIDs of the table's primary key in its order, under "c" and the ColumnID; empty without one.
    [[nodiscard]] std::shared_ptr<Collection> PrimaryKeyColumns(std::int32_t tabID);

    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  private:
    [[nodiscard]] bool OpenDatabase();
    [[nodiscard]] std::string SchemaName() const;

    ComponentState& state_;
    std::shared_ptr<host::Frontend> host_;  // given to Run, and let go of when that returns 0 or 1
    std::string schemaName_;                // of the schema object that Run found; empty before
    std::string whyNotOpened_;
};

}  // namespace tessel
