// What the commands of the properties list change.

#include <algorithm>

#include "platform/text/utf8.h"
#include "schema/action.h"
#include "schema/sql_text.h"
#include "tessel/convert.h"
#include "ui/rules/column_defaults.h"
#include "ui/rules/help_contexts.h"
#include "ui/rules/icon_keys.h"
#include "ui/rules/messages.h"
#include "ui/rules/properties_list.h"

namespace tessel {

namespace {

constexpr int columnNotAddedText = 2302;
constexpr int newColumnText = 2303;
constexpr int newIndexPromptText = 2304;
constexpr int newIndexTitleText = 2305;
constexpr int indexNotAddedText = 2306;
constexpr int newColumnActivity = 2440;
constexpr int newIndexActivity = 2453;

constexpr std::int32_t beforeAll = -1;

std::string NamesOf(const std::vector<PropertyRow>& rows, std::string_view separator = ", ") {
    std::string names;
    for (const PropertyRow& row : rows) AppendListed(names, row.text, separator);
    return names;
}

// Adds a column with the project's defaults; nothing when it is refused.
std::optional<ColumnRow> AddColumn(ComponentState& state, std::int32_t tabID, std::int32_t afterID) {
    const ColumnDefaults defaults = ReadColumnDefaults(state);
    const std::int32_t precision = ToInt32(defaults.precision);
    const std::int32_t scale = ToInt32(defaults.scale);
    ColumnRow column{.name = state.texts->Text(newColumnText),
                     .typeText = state.sqlTypes.SqlTypeText(defaults.typeID, precision, scale),
                     .isNullable = defaults.isNullable,
                     .comment = {},
                     .tag = {}};
    const bool added = WorkspaceOf(state)->ColumnAdd(
        tabID, column.name, defaults.typeID, precision, scale, defaults.isNullable, Null{},
        defaults.withDefault ? Value(defaults.defaultValue) : Value(), Now(), Null{}, Null{}, afterID,
        column.columnID);
    return added ? std::optional(column) : std::nullopt;
}

// A table must not go on naming an index that is gone as its primary one.
bool DropIndex(ComponentState& state, std::int32_t indexID) {
    return RunTrapped(state, [&] {
        state.Database().Execute("update Tables set PrimaryIndexID = null where PrimaryIndexID = " +
                                 std::to_string(indexID));
        return WorkspaceOf(state)->IndexDrop(indexID);
    });
}

}  // namespace

std::optional<std::string> PropertiesList::NewColumn(std::optional<std::size_t> after) {
    if (!Shows(PropertiesTab::Columns)) return std::nullopt;
    const std::size_t place = after && HasRow(*after) ? *after + 1 : rows_.size();
    const std::int32_t afterID = place == 0 ? beforeAll : rows_[place - 1].identifier;
    std::optional<ColumnRow> column;
    const UserChange change{.activity = newColumnActivity,
                            .subject = table_->name,
                            .complaint = state_.texts->Text(columnNotAddedText)};
    const bool added = WriteOrTell(state_, change, [&] {
        column = AddColumn(state_, table_->tabID, afterID);
        return column.has_value();
    });
    if (!added) return std::nullopt;
    Insert(place, ColumnPropertyRow(*column, false));
    return column->Key();
}

std::optional<std::string> PropertiesList::NewIndex() {
    if (!Shows(PropertiesTab::Indexes)) return std::nullopt;
    const auto name = state_.questions->Ask({.prompt = state_.texts->Text(newIndexPromptText),
                                             .title = state_.texts->Format(newIndexTitleText, {table_->name}),
                                             .helpFile = state_.helpFile,
                                             .helpContext = help_context::newIndex});
    if (!name || name->empty()) return std::nullopt;
    std::int32_t indexID = -1;
    const UserChange change{
        .activity = newIndexActivity, .subject = *name, .complaint = state_.texts->Text(indexNotAddedText)};
    if (!DoOrTell(state_, change,
                  [&] { return WorkspaceOf(state_)->IndexAdd(table_->tabID, *name, indexID); }))
        return std::nullopt;
    const auto place = std::ranges::upper_bound(rows_, *name, text::TextLess, &PropertyRow::text);
    PropertyRow row = NewIndexRow(indexID, *name);
    const std::string key = row.key;
    Insert(static_cast<std::size_t>(place - rows_.begin()), std::move(row));
    return key;
}

bool PropertiesList::IsDropConfirmed(const std::vector<PropertyRow>& rows) const {
    const int question = InfoOf(tab_).dropQuestion;
    const auto confirmed = [&](const std::string& name) {
        return IsConfirmed(state_, state_.texts->Format(question, {name}), host::Icon::Warning);
    };
    if (tab_ == PropertiesTab::Columns) return confirmed(NamesOf(rows, ",\r\n"));
    return std::ranges::all_of(rows, confirmed, &PropertyRow::text);
}

bool PropertiesList::DropObject(const PropertyRow& row) const {
    switch (tab_) {
        case PropertiesTab::Columns:
            return WorkspaceOf(state_)->ColumnDrop(row.identifier);
        case PropertiesTab::Indexes:
            return DropIndex(state_, row.identifier);
        case PropertiesTab::Keys:
        case PropertiesTab::ReferencedBy:
            return WorkspaceOf(state_)->ForeignDrop(row.identifier);
    }
    return false;
}

void PropertiesList::Drop(const Selection& selection) {
    const auto rows = Chosen(selection);
    if (rows.empty() || !IsDropConfirmed(rows)) return;
    const PropertiesTabInfo& info = InfoOf(tab_);
    const auto failure = [&](const std::string& names) {
        return state_.texts->Format(info.dropFailure, {names});
    };
    std::vector<std::string> dropped;
    std::string kept;
    const UserChange change{.activity = info.dropActivity,
                            .subject = NamesOf(rows),
                            .complaint = failure(NamesOf(rows)),
                            .icon = info.dropFailureIcon};
    const bool written = WriteOrTell(state_, change, [&] {
        for (const PropertyRow& row : rows) {
            if (DropObject(row))
                dropped.push_back(row.key);
            else
                AppendListed(kept, row.text);
        }
        return !dropped.empty();
    });
    if (!written) {
        // The window may show keys as dropped that are still there.
        if (!dropped.empty()) RunIgnoringErrors([&] { WorkspaceOf(state_)->RefreshBrowser(); });
        return;
    }
    for (const std::string& key : dropped) Remove(key);
    if (!kept.empty()) Tell(state_, failure(kept), info.dropFailureIcon);
}

bool PropertiesList::RenameObject(PropertiesTab tab, const PropertyRow& row, const std::string& name) const {
    const auto workspace = WorkspaceOf(state_);
    switch (tab) {
        case PropertiesTab::Columns:
            return workspace->ColumnUpdate(row.identifier, name, Missing{}, Missing{}, Missing{}, Missing{},
                                           Missing{}, Missing{});
        case PropertiesTab::Indexes:
            return workspace->IndexUpdate(row.identifier, name, Missing{}, Missing{});
        case PropertiesTab::Keys:
        case PropertiesTab::ReferencedBy:
            return workspace->ForeignUpdate(row.identifier, name, Missing{}, Missing{});
    }
    return false;
}

bool PropertiesList::Rename(std::size_t row, const std::string& name) {
    return HasRow(row) && Rename(tab_, PropertyRow(rows_[row]), name);
}

bool PropertiesList::Rename(PropertiesTab tab, const PropertyRow& renamed, const std::string& name) {
    if (renamed.text == name) return true;
    const PropertiesTabInfo& info = InfoOf(tab);
    const UserChange change{.activity = info.renameActivity,
                            .subject = renamed.text,
                            .complaint = state_.texts->Text(info.renameFailure),
                            .newName = name};
    if (!DoOrTell(state_, change, [&] { return RenameObject(tab, renamed, name); })) return false;
    Replace(renamed.key, [&](PropertyRow& shown) { shown.text = name; });
    return true;
}

void PropertiesList::NameTable(std::int32_t tabID, const std::string& name) {
    if (table_ && table_->tabID == tabID) table_->name = name;
}

void PropertiesList::Renew(const ColumnDialog& column) {
    Replace(ColumnKey(column.ColumnID()), [&](PropertyRow& row) {
        row.icon = column.IconKey();
        row.comment = column.Comment();
        row.subItems = {column.TypeText(), FlattenText(row.comment)};
    });
}

void PropertiesList::Renew(const IndexDialog& index) {
    Replace(IndexKey(index.IndexID()), [&](PropertyRow& row) {
        row.icon = index.IsUnique() ? icon::uniqueIndex : icon::index;
        row.comment = index.Comment();
        row.subItems = {index.ColumnsText(), FlattenText(row.comment)};
    });
}

void PropertiesList::Renew(const ForeignKeyDialog& key) {
    Replace(ForeignKeyKey(key.KeyID()), [&](PropertyRow& row) {
        row.comment = key.Comment();
        row.subItems[sub_item::keyColumns] = key.ColumnsText();
        row.subItems[sub_item::keyRefColumns] = key.RefColumnsText();
        row.subItems[sub_item::keyOnDelete] = key.OnDeleteText();
        row.subItems[sub_item::keyComment] = FlattenText(row.comment);
    });
}

}  // namespace tessel
