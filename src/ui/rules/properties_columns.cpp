// What the properties list does with the order of columns and with the clipboard.

#include <cstdlib>

#include "schema/project_settings.h"
#include "tessel/convert.h"
#include "ui/rules/messages.h"
#include "ui/rules/properties_list.h"

namespace tessel {

namespace {

constexpr int notPastedText = 2316;
constexpr int notMovedText = 2317;
constexpr int pasteActivity = 2445;
constexpr int moveActivity = 2454;

constexpr std::int32_t afterTheLast = 0;
constexpr int dragThreshold = 50;  // twips

}  // namespace

void PropertiesList::Mark(const Selection& selection, ColumnClipboard::Mark mark) {
    if (!Shows(PropertiesTab::Columns)) return;
    std::vector<ColumnClipboard::Column> columns;
    for (const PropertyRow& row : Chosen(selection)) columns.push_back({row.identifier, row.text});
    std::vector<bool> wasDimmed;
    for (std::size_t row = 0; row < rows_.size(); ++row) wasDimmed.push_back(IsDimmed(row));
    clipboard_.Take(std::move(columns), mark);
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (IsDimmed(row) != wasDimmed[row]) Change({.kind = RowsChange::Kind::Renew, .row = row}, [] {});
}

bool PropertiesList::CanPaste() const {
    return Shows(PropertiesTab::Columns) && !clipboard_.Columns().empty();
}

std::optional<std::int32_t> PropertiesList::PasteColumn(std::int32_t columnID) const {
    db::Transaction paste(state_.Database());
    const auto workspace = WorkspaceOf(state_);
    const std::int32_t copyID = workspace->ColumnCopy(columnID, table_->tabID, afterTheLast);
    if (copyID == -1 || (clipboard_.IsCut(columnID) && !workspace->ColumnDrop(columnID))) return std::nullopt;
    paste.Commit();
    return copyID;
}

std::vector<std::string> PropertiesList::Paste() {
    if (!CanPaste()) return {};
    std::vector<std::string> pasted;
    std::vector<std::int32_t> moved;
    std::string all;
    std::string failed;
    for (const auto& column : clipboard_.Columns()) AppendListed(all, column.name);
    const UserChange change{.activity = pasteActivity,
                            .subject = table_->name,
                            .complaint = state_.texts->Format(notPastedText, {all})};
    const bool written = WriteOrTell(state_, change, [&] {
        for (const auto& column : clipboard_.Columns()) {
            const auto copyID = PasteColumn(column.columnID);
            if (!copyID) {
                AppendListed(failed, column.name);
                continue;
            }
            pasted.push_back(ColumnKey(*copyID));
            if (clipboard_.IsCut(column.columnID)) moved.push_back(column.columnID);
        }
        return !pasted.empty();
    });
    if (!written) return {};
    for (const std::int32_t columnID : moved) clipboard_.Remove(columnID);
    Fill(table_);
    if (!failed.empty()) Tell(state_, state_.texts->Format(notPastedText, {failed}), host::Icon::Critical);
    return pasted;
}

bool PropertiesList::StartsDrag(int horizontal, int vertical) const {
    return Shows(PropertiesTab::Columns) && std::abs(horizontal) + std::abs(vertical) > dragThreshold;
}

bool PropertiesList::MoveColumn(std::size_t row, std::optional<std::size_t> target) {
    if (!Shows(PropertiesTab::Columns) || !HasRow(row) || !target || !HasRow(*target)) return false;
    if (*target == row || *target == row + 1) return false;
    std::vector<std::int32_t> columnIDs;
    for (const PropertyRow& column : rows_) columnIDs.push_back(column.identifier);
    MoveRow(columnIDs, row, *target);
    const UserChange change{.activity = moveActivity,
                            .subject = rows_[row].text,
                            .complaint = state_.texts->Format(notMovedText, {rows_[row].text})};
    if (!WriteOrTell(state_, change, [&] { return WritePositions(columnIDs); })) return false;
    Change({.kind = RowsChange::Kind::Move, .row = row, .to = *target},
           [&] { MoveRow(rows_, row, *target); });
    return true;
}

bool PropertiesList::WritePositions(const std::vector<std::int32_t>& columnIDs) const {
    db::TableSet columns = state_.Database().OpenTable("Columns");
    columns.SetIndex("PrimaryKey");
    std::int32_t position = 0;
    for (const std::int32_t columnID : columnIDs) {
        if (!columns.Seek({columnID})) return false;
        if (ToInt32(columns.Get("Position")) == ++position) continue;
        columns.Edit();
        columns.Set("Position", position);
        columns.Save();
    }
    RemoveVerifiedMark(state_.Database());
    return true;
}

}  // namespace tessel
