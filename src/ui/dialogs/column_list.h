#pragma once

#include <optional>

#include "ui/controls/list_view.h"
#include "ui/dialogs/column_model.h"

namespace tessel {

// A dialog's list of a table's columns, of which one or none is selected. Only the first header is shown. All
// lists of one font have rows of the same height, whatever they hold.
class ColumnList : public ListView {
  public:
    explicit ColumnList(const char* name);

    void SetHeaders(const QStringList& headers);
    // Shows the rows; a selected row that was not it before comes into view.
    void Show(std::vector<ColumnItem> items, std::optional<std::size_t> selected);
    void FitColumns();  // the first header to the texts and to the list's width

    [[nodiscard]] std::optional<std::size_t> Selected() const;

    // Is told the row that the user selects, or none.
    void OnSelect(std::function<void(std::optional<std::size_t>)> select) { select_ = std::move(select); }
    // Is told that the selected row was double-clicked, or Enter pressed on it.
    void OnEnter(const std::function<void()>& act);

    // For who draws beside the rows, in pixels.
    [[nodiscard]] int RowHeight() const;                // 0 while there are no rows
    [[nodiscard]] std::size_t FirstVisibleRow() const;  // 0 as well when there are none

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    void Select(std::optional<std::size_t> row);
    void ChooseRed();

    ColumnModel* model_;
    std::optional<std::size_t> shown_;  // the selection that Show gave, or that the user then made
    std::function<void(std::optional<std::size_t>)> select_;
};

}  // namespace tessel
