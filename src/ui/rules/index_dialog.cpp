#include "ui/rules/index_dialog.h"

#include <algorithm>

#include "platform/text/utf8.h"
#include "schema/project_settings.h"
#include "tessel/convert.h"
#include "ui/rules/icon_keys.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int captionText = 2360;
constexpr int descText = 2364;
constexpr int ascText = 2365;
constexpr int changePrimaryText = 2369;
constexpr int illegalIndexText = 2370;
constexpr int notWrittenText = 2371;
constexpr int propertiesActivity = 2447;

bool Descends(const IndexDialog::Row& row) { return row.icon == icon::descending; }

}  // namespace

std::optional<IndexDialog> IndexDialog::Open(ComponentState& state, Index index) {
    db::TableSet indices = state.Database().OpenTable("Indices");
    indices.SetIndex("PrimaryKey");
    if (!indices.Seek({index.indexID})) {
        Tell(state, state.texts->Text(illegalIndexText), host::Icon::Critical);
        return std::nullopt;
    }
    IndexDialog dialog(state, std::move(index));
    dialog.Fill();
    return dialog;
}

void IndexDialog::Fill() {
    const std::string indexID = std::to_string(index_.indexID);
    for (auto& column : ReadColumns(state_, index_.tabID)) {
        const std::string own = ColumnIcon(false, column.isNullable);
        rows_[Available].push_back({.column = std::move(column), .ownIcon = own, .icon = own});
    }
    for (auto row = state_.Database().Select("select * from IndexColumns where IndexID = " + indexID +
                                             " order by Position");
         row.Next();)
        TakeIntoIndex(row.Integer("ColumnID"), text::SameText(row.Text("Direction"), "D"));
    const bool isPrimary = state_.Database()
                               .Select("select * from Tables where TabID = " + std::to_string(index_.tabID) +
                                       " and PrimaryIndexID = " + indexID)
                               .Next();
    SetPrimary(isPrimary);
    SetUnique(index_.isUnique);
}

void IndexDialog::TakeIntoIndex(std::int32_t columnID, bool descends) {
    auto& available = rows_[Available];
    const auto row = std::ranges::find(available, columnID, [](const Row& r) { return r.column.columnID; });
    if (row == available.end()) return;
    row->icon = descends ? icon::descending : icon::ascending;
    rows_[InIndex].push_back(std::move(*row));
    available.erase(row);
}

std::string IndexDialog::Caption() const {
    return state_.texts->Format(captionText, {index_.indexName, index_.tableName});
}

std::string IndexDialog::TypeLabel(List list) const {
    return selected_[list] ? rows_[list][*selected_[list]].column.typeText : std::string();
}

bool IndexDialog::CanMove(Direction direction) const {
    const auto row = selected_[InIndex];
    if (!row) return false;
    return direction == Up ? *row > 0 : *row + 1 < rows_[InIndex].size();
}

std::string IndexDialog::DirectionCaption() const {
    return state_.texts->Text(offersAscending_ ? ascText : descText);
}

void IndexDialog::UpdateDirection() {
    if (CanSwitchDirection()) offersAscending_ = Descends(rows_[InIndex][*selected_[InIndex]]);
}

void IndexDialog::Select(List list, std::optional<std::size_t> row) {
    selected_[list] = row;
    UpdateDirection();
}

void IndexDialog::Add(List source) {
    if (!CanAdd(source)) return;
    const List target = source == Available ? InIndex : Available;
    auto& from = rows_[source];
    const std::size_t place = *selected_[source];
    Row row = std::move(from[place]);
    row.icon = target == InIndex ? icon::ascending : row.ownIcon;
    from.erase(from.begin() + static_cast<std::ptrdiff_t>(place));
    rows_[target].push_back(std::move(row));
    selected_[source].reset();
    if (!from.empty()) selected_[source] = std::min(place, from.size() - 1);
    selected_[target] = rows_[target].size() - 1;
    UpdateDirection();
}

void IndexDialog::Move(Direction direction) {
    if (!CanMove(direction)) return;
    std::size_t& place = *selected_[InIndex];
    const std::size_t neighbour = direction == Up ? place - 1 : place + 1;
    std::swap(rows_[InIndex][place], rows_[InIndex][neighbour]);
    place = neighbour;
    UpdateDirection();
}

void IndexDialog::SwitchDirection() {
    if (!CanSwitchDirection()) return;
    Row& row = rows_[InIndex][*selected_[InIndex]];
    row.icon = Descends(row) ? icon::ascending : icon::descending;
    UpdateDirection();
}

void IndexDialog::SetPrimary(bool checked) {
    isPrimary_ = checked;
    if (checked) {
        for (Row& row : rows_[InIndex]) row.icon = icon::ascending;
        index_.isUnique = true;
    }
    UpdateDirection();
}

void IndexDialog::SetUnique(bool checked) {
    index_.isUnique = checked;
    if (!checked) SetPrimary(false);
}

bool IndexDialog::OK() {
    return MayBecomePrimary() &&
           WriteOrTell(state_,
                       {.activity = propertiesActivity,
                        .subject = index_.indexName,
                        .complaint = state_.texts->Format(notWrittenText, {index_.indexName})},
                       [this] { return Write(); });
}

bool IndexDialog::MayBecomePrimary() const {
    if (!isPrimary_) return true;
    db::TableSet table = state_.Database().OpenTable("Tables");
    table.SetIndex("PrimaryKey");
    if (!table.Seek({index_.tabID})) return true;
    const Value primary = table.Get("PrimaryIndexID");
    return primary.IsNull() || ToInt32(primary) == index_.indexID ||
           IsConfirmed(state_, state_.texts->Text(changePrimaryText), host::Icon::Exclamation);
}

bool IndexDialog::Write() const {
    if (!WorkspaceOf(state_)->IndexUpdate(index_.indexID, Missing{}, index_.isUnique, index_.comment))
        return false;
    state_.Database().Execute("delete from IndexColumns where IndexID = " + std::to_string(index_.indexID));
    if (!WriteColumns() || !WritePrimary()) return false;
    RemoveVerifiedMark(state_.Database());
    return true;
}

bool IndexDialog::WriteColumns() const {
    db::TableSet entries = state_.Database().OpenTable("IndexColumns");
    db::TableSet columns = state_.Database().OpenTable("Columns");
    columns.SetIndex("PrimaryKey");
    std::int32_t position = 1;
    for (const Row& row : rows_[InIndex]) {
        entries.AddNew();
        entries.Set("IndexID", index_.indexID);
        entries.Set("Direction", Descends(row) ? "D" : "A");
        entries.Set("ColumnID", row.column.columnID);
        entries.Set("Position", position++);
        if (!columns.Seek({row.column.columnID})) return false;
        if (index_.isUnique) {
            columns.Edit();
            columns.Set("IsNullable", false);
            columns.Save();
        }
        entries.Save();
    }
    return true;
}

bool IndexDialog::WritePrimary() const {
    db::TableSet table = state_.Database().OpenTable("Tables");
    table.SetIndex("PrimaryKey");
    if (!table.Seek({index_.tabID})) return false;
    const bool wasPrimary = table.Get("PrimaryIndexID") == Value(index_.indexID);
    if (isPrimary_ == wasPrimary) return true;
    table.Edit();
    table.Set("PrimaryIndexID", isPrimary_ ? Value(index_.indexID) : Value());
    table.Save();
    return true;
}

std::string IndexDialog::ColumnsText() const {
    std::string columns;
    for (const Row& row : rows_[InIndex])
        AppendListed(columns, IndexColumnText(row.column.name, Descends(row)));
    return columns;
}

}  // namespace tessel
