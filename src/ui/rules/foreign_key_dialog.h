#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "schema/component_state.h"
#include "ui/rules/column_row.h"
#include "ui/rules/connecting_lines.h"

namespace tessel {

// The fields of the foreign-key dialog and what each of the user's actions does to them. The state outlives
// it.
class ForeignKeyDialog {
  public:
    // The two lists, by the number of their controls.
    enum List : std::size_t { Referencing = 0, Referenced = 1 };

    struct Row {
        ColumnRow column;
        std::string icon;       // "notnull" in the left list, "key" in the right one, or none
        std::int32_t link = 0;  // left list only: the referenced ColumnID, or 0
        bool isBold = false;
        bool isRed = false;
    };

    // Nothing, after a message, when the key is no longer there. `onDeleteText` is the name of its delete
    // rule.
    [[nodiscard]] static std::optional<ForeignKeyDialog> Open(ComponentState& state, std::int32_t keyID,
                                                              const std::string& onDeleteText,
                                                              const std::string& comment);

    // The fields.
    [[nodiscard]] std::int32_t KeyID() const { return keyID_; }
    [[nodiscard]] std::string Caption() const;
    [[nodiscard]] const std::string& TableName(List list) const { return tableNames_[list]; }
    [[nodiscard]] const std::vector<Row>& Rows(List list) const { return rows_[list]; }
    [[nodiscard]] std::optional<std::size_t> Selected(List list) const { return selected_[list]; }
    [[nodiscard]] std::string DetailsName(List list) const;  // of the selected row
    [[nodiscard]] std::string DetailsType(List list) const;
    [[nodiscard]] bool CanLink() const { return selected_[Referencing] && selected_[Referenced]; }
    [[nodiscard]] bool CanUnlink() const;
    [[nodiscard]] const std::vector<std::string>& IndexNames() const { return indexNames_; }
    [[nodiscard]] std::optional<std::size_t> Index() const { return index_; }  // in IndexNames
    [[nodiscard]] std::vector<std::string> DeleteRules() const;
    [[nodiscard]] std::optional<std::size_t> DeleteRule() const { return deleteRule_; }  // in DeleteRules
    [[nodiscard]] const std::string& Comment() const { return comment_; }
    [[nodiscard]] std::vector<RowLink> Links() const;  // for ConnectingLines

    // What the user does.
    void Select(List list, std::optional<std::size_t> row);
    void SelectPartner(List list);  // in the other list; a double click on the selected row
    void Link();
    void Unlink();
    void SelectIndex(std::optional<std::size_t> index);
    void SelectDeleteRule(std::size_t rule) { deleteRule_ = rule; }
    void EditComment(const std::string& text) { comment_ = text; }
    // Writes the key; false, after a message, when the dialog stays open.
    [[nodiscard]] bool OK();

    // What the caller shows of the key once it is written.
    [[nodiscard]] std::string ColumnsText() const;
    [[nodiscard]] std::string RefColumnsText() const;  // in the same order
    [[nodiscard]] std::string OnDeleteText() const;

  private:
    ForeignKeyDialog(ComponentState& state, std::int32_t keyID) : state_(state), keyID_(keyID) {}

    void FillLists(std::int32_t tabID, std::int32_t refTabID);
    void FillLinks(Collection& referenced);
    void FillIndexes(std::int32_t refTabID, const Collection& referenced);
    [[nodiscard]] std::optional<std::size_t> RefRow(std::int32_t refColumnID) const;
    [[nodiscard]] std::optional<std::size_t> LinkedRow(std::int32_t refColumnID) const;
    void SetLink(std::size_t row, std::int32_t refColumnID);
    [[nodiscard]] bool Write() const;
    void WritePairs() const;

    ComponentState& state_;
    std::int32_t keyID_;
    std::string keyName_;
    std::array<std::string, 2> tableNames_;
    std::array<std::vector<Row>, 2> rows_;
    std::unordered_map<std::int32_t, std::size_t> refRows_;  // by ColumnID
    std::array<std::optional<std::size_t>, 2> selected_;
    std::vector<std::string> indexNames_;
    std::vector<std::int32_t> indexIDs_;
    std::optional<std::size_t> index_;
    std::optional<std::size_t> deleteRule_;
    std::string comment_;
    std::string openedWithRule_;
    std::string openedWithComment_;
};

}  // namespace tessel
