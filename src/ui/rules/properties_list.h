#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "schema/component_state.h"
#include "ui/rules/column_clipboard.h"
#include "ui/rules/column_dialog.h"
#include "ui/rules/foreign_key_dialog.h"
#include "ui/rules/index_dialog.h"
#include "ui/rules/list_widths.h"
#include "ui/rules/properties_rows.h"
#include "ui/rules/rows_change.h"

namespace tessel {

// The parts of one table that the properties pane lists: those of the selected tab. The state outlives it.
//
// Rows count from 0. A selection holds the selected rows in list order. One call that changes the schema is
// one transaction.
class PropertiesList {
  public:
    using Selection = std::vector<std::size_t>;

    struct Table {
        std::int32_t tabID = -1;
        std::string name;
    };
    struct Commands {
        bool create = false;
        bool drop = false;
        bool rename = false;
        bool properties = false;
    };
    struct LocateItem {
        std::string text;
        bool isEnabled = false;
    };
    // A key's row at the other table.
    struct LocateTarget {
        std::int32_t tabID = -1;
        PropertiesTab tab = PropertiesTab::Keys;
        std::string rowKey;
    };

    explicit PropertiesList(ComponentState& state) : state_(state) {}

    // The headers belong to the rows: a change of the tab alone is a Reset, too.
    void Watch(RowsWatcher watcher) { watcher_ = std::move(watcher); }

    // What is shown.
    [[nodiscard]] PropertiesTab Tab() const { return tab_; }
    [[nodiscard]] const std::optional<Table>& ShownTable() const { return table_; }
    [[nodiscard]] std::vector<std::string> Headers() const;
    [[nodiscard]] const std::vector<PropertyRow>& Rows() const { return rows_; }
    [[nodiscard]] std::optional<std::size_t> Find(std::string_view key) const;
    // What the texts of these rows, and the headers, need; twips, by header.
    [[nodiscard]] std::vector<int> ColumnWidths(std::span<const PropertyRow> rows,
                                                const MeasureText& measure) const;
    [[nodiscard]] bool IsDimmed(std::size_t row) const;  // it is cut and waits to be pasted

    // Reads the rows of the selected tab of this table anew; none empties the list. A database error is
    // thrown and leaves the list as it was.
    void Fill(std::optional<Table> table);

    // Call MarkUserTabChange when a key or a mouse button goes down on the tab strip: only then does the next
    // ChangeTab fill the list. Otherwise the rows stay as they are until the next Fill, and no command takes
    // them.
    void MarkUserTabChange() { isUserTabChange_ = true; }
    void ChangeTab(PropertiesTab tab);

    // What the selection admits.
    [[nodiscard]] Commands CommandsFor(const Selection& selection) const;
    [[nodiscard]] LocateItem LocateItemFor(std::optional<std::size_t> row) const;
    [[nodiscard]] std::optional<LocateTarget> Locate(std::size_t row) const;  // nothing to locate: none

    // New on Columns and Indexes: the key of the new row, or nothing. A column goes after the row `after`
    // (the last when none is given).
    [[nodiscard]] std::optional<std::string> NewColumn(std::optional<std::size_t> after);
    [[nodiscard]] std::optional<std::string> NewIndex();  // asks for the name

    // Asks about the rows, then drops them. Cancel leaves all as they are; a row that cannot be dropped stays
    // and the user is told.
    void Drop(const Selection& selection);

    // False, after a message, when the name is refused; an unchanged name is not written.
    [[nodiscard]] bool Rename(std::size_t row, const std::string& name);
    // The same for a row of this tab that may no longer be shown.
    [[nodiscard]] bool Rename(PropertiesTab tab, const PropertyRow& row, const std::string& name);

    // The shown table, if it is this one, now bears this name.
    void NameTable(std::int32_t tabID, const std::string& name);

    // The dialog of the row's properties, on its own tab; after it was confirmed, Renew shows what it wrote.
    [[nodiscard]] std::optional<ColumnDialog> OpenColumn(std::size_t row,
                                                         const LocaleConversions& locale) const;
    [[nodiscard]] std::optional<IndexDialog> OpenIndex(std::size_t row) const;
    [[nodiscard]] std::optional<ForeignKeyDialog> OpenKey(std::size_t row) const;
    void Renew(const ColumnDialog& column);
    void Renew(const IndexDialog& index);
    void Renew(const ForeignKeyDialog& key);

    // Cut, copy and paste of columns; nothing on other tabs. Rows that become dimmed, or are no longer, are
    // told as renewed.
    void Mark(const Selection& selection, ColumnClipboard::Mark mark);
    [[nodiscard]] bool CanPaste() const;
    // Copies the marked columns after the last of the shown table and drops those that were cut. Tells the
    // user which could not be pasted; these stay where they are. Returns the keys of the new rows.
    [[nodiscard]] std::vector<std::string> Paste();

    // Dragging a column. The distances of the pointer from where it went down are in twips.
    [[nodiscard]] bool StartsDrag(int horizontal, int vertical) const;
    // Puts the row before the row `target` and numbers the columns anew. False when nothing moves: on the row
    // itself, on the one after it, on no row, or, after a message, when it cannot be written.
    bool MoveColumn(std::size_t row, std::optional<std::size_t> target);

  private:
    [[nodiscard]] bool Shows(PropertiesTab tab) const;  // its rows, ready for commands
    [[nodiscard]] bool HasRow(std::size_t row) const;   // and it takes commands
    [[nodiscard]] std::vector<PropertyRow> Chosen(const Selection& selection) const;
    [[nodiscard]] bool IsDropConfirmed(const std::vector<PropertyRow>& rows) const;
    [[nodiscard]] bool DropObject(const PropertyRow& row) const;
    [[nodiscard]] bool RenameObject(PropertiesTab tab, const PropertyRow& row, const std::string& name) const;
    [[nodiscard]] std::optional<std::int32_t> PasteColumn(std::int32_t columnID) const;
    [[nodiscard]] bool WritePositions(const std::vector<std::int32_t>& columnIDs) const;

    void Insert(std::size_t place, PropertyRow row);
    void Remove(const std::string& key);
    void Replace(const std::string& key, const std::function<void(PropertyRow&)>& edit);
    void Change(const RowsChange& change, const std::function<void()>& apply);

    ComponentState& state_;
    RowsWatcher watcher_;
    PropertiesTab tab_ = PropertiesTab::Columns;
    PropertiesTab rowsTab_ = PropertiesTab::Columns;  // that the rows were read for
    bool isUserTabChange_ = false;
    std::optional<Table> table_;
    std::vector<PropertyRow> rows_;
    ColumnClipboard clipboard_;
};

}  // namespace tessel
