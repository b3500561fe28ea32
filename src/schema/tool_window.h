#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tessel/object.h"

namespace tessel {

// A row of the errors list.
struct ErrorRow {
    std::int32_t tblID = 0;
    std::int32_t keyID = 0;     // -1 for an error of a column or an index
    std::int32_t columnID = 0;  // 0 for none
    std::string tableName;
    std::string message;
    std::string icon;  // "Table", "Column" or "Key"
    std::string tag;   // tblID, columnID and keyID in decimal, parted by carriage returns
};

struct ComponentState;

// The main window as the workspace and its callers see it. Keys are a letter and a decimal identifier: "t12"
// is a table, "k3" a foreign key.
class ToolWindow : public Object {
  public:
    // Adds the table to the browser and the diagram, or renews it there. The tag (the table's origin
    // reference) and the comment stay as they are when they are Missing.
    virtual void DrawTable(const std::string& tableName, std::int32_t tabID, const Value& tag,
                           const Value& comments) = 0;
    // Takes the table out of the browser and the diagram; nothing when it is not there.
    virtual void RemoveTable(const std::string& key) = 0;

    // Connectors of the diagram, from the referencing to the referenced table. Nothing happens when a table
    // has no shape or the connector is not there.
    virtual void AddConnector(const std::string& key, const std::string& fromKey, const std::string& toKey,
                              const std::string& caption) = 0;
    virtual void SetConnectorText(const std::string& key, const std::string& caption) = 0;
    virtual void RemoveConnector(const std::string& key) = 0;

    // Progress of a long operation, in units of the caller's choice.
    virtual void StartProgress(const std::string& action, std::int32_t totalLength) = 0;
    virtual void StartStep(const std::string& act) = 0;
    virtual void FinishStep(std::int32_t length) = 0;
    virtual void FinishProgress() = 0;

    // Shows these rows in the errors list, in place of what it held, and the title over it.
    virtual void ShowErrors(const std::vector<ErrorRow>& errors, const std::string& title) = 0;

    // Shows the tables as the database now holds them.
    virtual void RefreshBrowser() = 0;

    // Selects the table in the browser; nothing when it is not there.
    virtual void SelectTable(const std::string& key) = 0;

    // Ask the user, on behalf of an add-on. Words that are none of those named throw ErrorKind::Argument.
    //   icon     "none", "critical", "exclamation", "warning", "information" (the one that is not passed)
    //   buttons  "OK" (not passed), "OKCancel", "YesNo"; the answer is "OK", "Cancel", "Yes" or "No"
    [[nodiscard]] std::string Message(const std::string& text, const Value& icon, const Value& buttons);
    // The typed text, or Null when the user cancelled. `text` is what the field holds at first.
    [[nodiscard]] Value Input(const std::string& prompt, const Value& text);
    // A dialog of the caller's own, as ReadForm takes it: the values by the fields' keys, or Null when the
    // user cancelled.
    [[nodiscard]] Value Form(const Collection& form);

    // The reference text of the origin viewer.
    [[nodiscard]] virtual std::string CVRL() const = 0;
    virtual void SetCVRL(const std::string& value) = 0;

    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;

  protected:
    [[nodiscard]] virtual const ComponentState& State() const = 0;
};

}  // namespace tessel
