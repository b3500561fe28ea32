#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "schema/component_state.h"
#include "ui/rules/column_row.h"

namespace tessel {

// The fields of the index dialog and what each of the user's actions does to them. The state outlives it.
class IndexDialog {
  public:
    // The two lists, by the number of their controls.
    enum List : std::size_t { Available = 0, InIndex = 1 };
    enum Direction : std::size_t { Up = 0, Down = 1 };

    struct Row {
        ColumnRow column;
        std::string ownIcon;  // "notnull" or none
        std::string icon;     // that the list shows: ownIcon, or the direction in the index
    };

    // What the caller knows of the index.
    struct Index {
        std::int32_t indexID = -1;
        std::string indexName;
        std::int32_t tabID = -1;
        std::string tableName;
        bool isUnique = false;
        std::string comment;
    };

    // Nothing, after a message, when the index is no longer there.
    [[nodiscard]] static std::optional<IndexDialog> Open(ComponentState& state, Index index);

    // The fields.
    [[nodiscard]] std::int32_t IndexID() const { return index_.indexID; }
    [[nodiscard]] std::string Caption() const;
    [[nodiscard]] const std::vector<Row>& Rows(List list) const { return rows_[list]; }
    [[nodiscard]] std::optional<std::size_t> Selected(List list) const { return selected_[list]; }
    [[nodiscard]] std::string TypeLabel(List list) const;  // of the selected row
    [[nodiscard]] bool CanAdd(List list) const { return selected_[list].has_value(); }
    [[nodiscard]] bool CanMove(Direction direction) const;
    [[nodiscard]] bool CanSwitchDirection() const { return !isPrimary_ && selected_[InIndex]; }
    [[nodiscard]] std::string DirectionCaption() const;
    [[nodiscard]] bool IsPrimary() const { return isPrimary_; }
    [[nodiscard]] bool IsPrimaryEnabled() const { return index_.isUnique; }
    [[nodiscard]] bool IsUnique() const { return index_.isUnique; }
    [[nodiscard]] const std::string& Comment() const { return index_.comment; }

    // What the user does.
    void Select(List list, std::optional<std::size_t> row);
    void Add(List source);  // moves the selected row to the other list
    void Move(Direction direction);
    void SwitchDirection();
    void SetPrimary(bool checked);
    void SetUnique(bool checked);
    void EditComment(const std::string& text) { index_.comment = text; }
    // Writes the index; false when the dialog stays open.
    [[nodiscard]] bool OK();

    // The columns of the index as one text.
    [[nodiscard]] std::string ColumnsText() const;

  private:
    IndexDialog(ComponentState& state, Index index) : state_(state), index_(std::move(index)) {}

    void Fill();
    void TakeIntoIndex(std::int32_t columnID, bool descends);
    void UpdateDirection();
    [[nodiscard]] bool MayBecomePrimary() const;
    [[nodiscard]] bool Write() const;
    [[nodiscard]] bool WriteColumns() const;
    [[nodiscard]] bool WritePrimary() const;

    ComponentState& state_;
    Index index_;
    std::array<std::vector<Row>, 2> rows_;
    std::array<std::optional<std::size_t>, 2> selected_;
    bool isPrimary_ = false;
    bool offersAscending_ = false;  // what the direction button says
};

}  // namespace tessel
