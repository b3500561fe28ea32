#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "schema/component_state.h"

namespace tessel {

// The fields of the new-key dialog and what each of the user's actions does to them. The state outlives it.
class NewKeyDialog {
  public:
    // `refTabID` is the table to preselect; -1 preselects the first, one that is not there none.
    NewKeyDialog(ComponentState& state, std::string tableName, std::int32_t tabID, std::int32_t refTabID);

    // The fields.
    [[nodiscard]] std::string Caption() const;
    [[nodiscard]] const std::vector<std::string>& TableNames() const { return tableNames_; }
    [[nodiscard]] std::optional<std::size_t> Table() const { return table_; }  // in TableNames
    [[nodiscard]] const std::string& KeyName() const { return keyName_; }
    [[nodiscard]] bool CanOK() const { return table_ && !keyName_.empty(); }

    // What the user does. A caret is a position in characters; the one that is returned is where it stands
    // after what no name may hold was dropped.
    [[nodiscard]] std::int32_t EditName(const std::string& text, std::int32_t caret);
    void SelectTable(std::optional<std::size_t> table) { table_ = table; }
    // Makes the key; false, after a message, when the dialog stays open.
    [[nodiscard]] bool OK();

    // What the caller is left with, also after Cancel.
    [[nodiscard]] std::int32_t KeyID() const { return keyID_; }  // -1 while no key was made
    // The selected table, or the one that was to be preselected while none is.
    [[nodiscard]] std::int32_t RefTableID() const { return table_ ? tabIDs_[*table_] : refTabID_; }

  private:
    ComponentState& state_;
    std::string tableName_;
    std::int32_t tabID_;
    std::int32_t refTabID_;
    std::vector<std::string> tableNames_;
    std::vector<std::int32_t> tabIDs_;
    std::optional<std::size_t> table_;
    std::string keyName_;
    std::int32_t keyID_ = -1;
};

}  // namespace tessel
