#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "schema/component_state.h"

namespace tessel {

// Verification: checks every table of the open project's schema and keeps what it finds in the table Errors.
// Database errors are thrown, and ErrorKind::Host while no database or no window is open.
class DBCheck {
  public:
    explicit DBCheck(ComponentState& state) : state_(state) {}

    // Adds a row to the table Errors.
    void AddError(std::int32_t tblID, std::int32_t keyID, std::int32_t columnID, const std::string& message);

    // Does nothing at all while the project setting "Verified" is "OK". Otherwise replaces the rows of Errors
    // by the findings of a run through all tables, reloads the window's errors list where `showErrors` says
    // so, and sets "Verified" to "OK", also when there are findings. The run is one transaction that is kept
    // even when it fails: the findings so far stay, "Verified" stays as it was, the progress that was started
    // is not finished, and the failure is thrown (that of the database when the findings cannot be kept).
    void VerifySchema(bool showErrors);

    // What the last run found, as the errors list shows it: by table, key and column. Findings of tables that
    // are no longer there are left out.
    [[nodiscard]] std::vector<ErrorRow> StoredErrors();

    // How an errors list of that many rows is headed.
    [[nodiscard]] std::string TitleFor(std::size_t errors) const;

    // Shows StoredErrors in the window's errors list.
    void LoadErrors();

  private:
    void CheckAllTables(bool showErrors);
    void CheckTable(std::int32_t tabID, const std::string& tableName);

    ComponentState& state_;
};

}  // namespace tessel
