#include "ui/rules/properties_list.h"

#include <algorithm>
#include <utility>

#include "ui/rules/icon_keys.h"
#include "ui/rules/twips.h"

namespace tessel {

namespace {

constexpr int notAvailableText = 2025;
constexpr int referencedTableText = 2300;
constexpr int referencingTableText = 2301;

// Beside the widest text of a column that is not the first, in twips.
constexpr int margin = 180;

const std::string& TextUnder(const PropertyRow& row, std::size_t header) {
    static const std::string empty;
    if (header == 0) return row.text;
    return header <= row.subItems.size() ? row.subItems[header - 1] : empty;
}

}  // namespace

std::vector<std::string> PropertiesList::Headers() const {
    std::vector<std::string> headers;
    for (const int text : InfoOf(tab_).headers) headers.push_back(state_.texts->Text(text));
    return headers;
}

std::optional<std::size_t> PropertiesList::Find(std::string_view key) const {
    const auto row = std::ranges::find(rows_, key, &PropertyRow::key);
    if (row == rows_.end()) return std::nullopt;
    return static_cast<std::size_t>(row - rows_.begin());
}

std::vector<int> PropertiesList::ColumnWidths(std::span<const PropertyRow> rows,
                                              const MeasureText& measure) const {
    std::vector<int> widths;
    for (const std::string& header : Headers()) {
        const std::size_t column = widths.size();
        int widest = measure(header);
        for (const PropertyRow& row : rows) widest = std::max(widest, measure(TextUnder(row, column)));
        widths.push_back(widest + (column == 0 ? iconAndMargin : margin));
    }
    return widths;
}

bool PropertiesList::IsDimmed(std::size_t row) const {
    return rowsTab_ == PropertiesTab::Columns && clipboard_.IsCut(rows_.at(row).identifier);
}

void PropertiesList::Fill(std::optional<Table> table) {
    std::vector<PropertyRow> rows;
    if (table) rows = ReadPropertyRows(state_, tab_, table->tabID);
    Change({.kind = RowsChange::Kind::Reset}, [&] {
        table_ = std::move(table);
        rows_ = std::move(rows);
        rowsTab_ = tab_;
    });
}

void PropertiesList::ChangeTab(PropertiesTab tab) {
    const bool byUser = std::exchange(isUserTabChange_, false);
    Change({.kind = RowsChange::Kind::Reset}, [&] { tab_ = tab; });
    if (byUser) Fill(table_);
}

PropertiesList::Commands PropertiesList::CommandsFor(const Selection& selection) const {
    const std::size_t count = Chosen(selection).size();
    return {.create = table_ && tab_ != PropertiesTab::ReferencedBy,
            .drop = count > 0,
            .rename = count == 1,
            .properties = count == 1};
}

PropertiesList::LocateItem PropertiesList::LocateItemFor(std::optional<std::size_t> row) const {
    if (!row || !HasRow(*row) || rows_[*row].icon != icon::foreign)
        return {.text = state_.texts->Text(notAvailableText)};
    const int text = tab_ == PropertiesTab::Keys ? referencedTableText : referencingTableText;
    return {.text = state_.texts->Text(text), .isEnabled = true};
}

std::optional<PropertiesList::LocateTarget> PropertiesList::Locate(std::size_t row) const {
    if (!LocateItemFor(row).isEnabled) return std::nullopt;
    auto key = state_.Database().Select("select * from ForeignKeys where KeyID = " +
                                        std::to_string(rows_[row].identifier));
    if (!key.Next()) return std::nullopt;
    if (tab_ == PropertiesTab::Keys)
        return LocateTarget{key.Integer("RefTabId"), PropertiesTab::ReferencedBy, rows_[row].key};
    return LocateTarget{key.Integer("TabID"), PropertiesTab::Keys, rows_[row].key};
}

std::optional<ColumnDialog> PropertiesList::OpenColumn(std::size_t row,
                                                       const LocaleConversions& locale) const {
    if (!Shows(PropertiesTab::Columns) || !HasRow(row)) return std::nullopt;
    return ColumnDialog::Open(state_, locale, rows_[row].identifier, rows_[row].icon);
}

std::optional<IndexDialog> PropertiesList::OpenIndex(std::size_t row) const {
    if (!Shows(PropertiesTab::Indexes) || !HasRow(row)) return std::nullopt;
    const PropertyRow& index = rows_[row];
    return IndexDialog::Open(state_, {.indexID = index.identifier,
                                      .indexName = index.text,
                                      .tabID = table_->tabID,
                                      .tableName = table_->name,
                                      .isUnique = index.icon == icon::uniqueIndex,
                                      .comment = index.comment});
}

std::optional<ForeignKeyDialog> PropertiesList::OpenKey(std::size_t row) const {
    if (!HasRow(row) || rows_[row].icon != icon::foreign) return std::nullopt;
    const PropertyRow& key = rows_[row];
    return ForeignKeyDialog::Open(state_, key.identifier, key.subItems[sub_item::keyOnDelete], key.comment);
}

bool PropertiesList::Shows(PropertiesTab tab) const { return table_ && tab_ == tab && rowsTab_ == tab; }

bool PropertiesList::HasRow(std::size_t row) const { return Shows(tab_) && row < rows_.size(); }

std::vector<PropertyRow> PropertiesList::Chosen(const Selection& selection) const {
    std::vector<PropertyRow> chosen;
    for (const std::size_t row : selection)
        if (HasRow(row)) chosen.push_back(rows_[row]);
    return chosen;
}

void PropertiesList::Insert(std::size_t place, PropertyRow row) {
    Change({.kind = RowsChange::Kind::Insert, .row = place},
           [&] { rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(place), std::move(row)); });
}

void PropertiesList::Remove(const std::string& key) {
    const auto row = Find(key);
    if (!row) return;
    Change({.kind = RowsChange::Kind::Remove, .row = *row},
           [&] { rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(*row)); });
}

void PropertiesList::Replace(const std::string& key, const std::function<void(PropertyRow&)>& edit) {
    if (const auto row = Find(key))
        Change({.kind = RowsChange::Kind::Renew, .row = *row}, [&] { edit(rows_[*row]); });
}

void PropertiesList::Change(const RowsChange& change, const std::function<void()>& apply) {
    watcher_ ? watcher_(change, apply) : apply();
}

}  // namespace tessel
