#include "ui/rules/browser_list.h"

#include <algorithm>

#include "platform/text/utf8.h"
#include "schema/object_keys.h"
#include "schema/sql_text.h"
#include "ui/rules/origin_reference.h"

namespace tessel {

namespace {

std::string OneLine(const Value& comments) { return FlattenText(NullToText(comments)); }

}  // namespace

std::optional<std::size_t> BrowserList::Find(std::string_view key) const {
    const auto name = names_.find(std::string(key));
    if (name == names_.end()) return std::nullopt;
    const auto place = rows_.begin() + static_cast<std::ptrdiff_t>(PlaceOf(name->second));
    return static_cast<std::size_t>(std::ranges::find(place, rows_.end(), key, &BrowserRow::key) -
                                    rows_.begin());
}

void BrowserList::Refresh(db::Database& database, host::Frontend& frontend) {
    std::vector<BrowserRow> rows;
    // The database's order of names is the list's.
    for (auto row = database.Select("select * from tables order by TableName"); row.Next();)
        rows.push_back(
            {.key = TableKey(row.Integer("TabID")),
             .text = row.Text("TableName"),
             .description = OneLine(row["Comments"]),
             .tag = OriginReference(frontend, NullToText(row["RepObjId"]), NullToText(row["CVRL"]))});
    Change({.kind = RowsChange::Kind::Reset}, [&] {
        rows_ = std::move(rows);
        names_.clear();
        for (const BrowserRow& row : rows_) names_.emplace(row.key, row.text);
    });
}

void BrowserList::Draw(const std::string& name, std::int32_t tabID, const Value& tag, const Value& comments) {
    const std::string key = TableKey(tabID);
    const auto row = Find(key);
    BrowserRow drawn;
    if (row) drawn = rows_[*row];
    drawn.key = key;
    drawn.text = name;
    if (!comments.IsMissing()) drawn.description = OneLine(comments);
    if (!tag.IsMissing()) drawn.tag = NullToText(tag);
    const std::size_t place = PlaceOf(name);
    row ? Renew(*row, place, std::move(drawn)) : Insert(place, std::move(drawn));
}

void BrowserList::Remove(std::string_view key) {
    const auto row = Find(key);
    if (!row) return;
    Change({.kind = RowsChange::Kind::Remove, .row = *row}, [&] {
        names_.erase(rows_[*row].key);
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(*row));
    });
}

std::size_t BrowserList::PlaceOf(const std::string& text) const {
    const auto place = std::ranges::lower_bound(rows_, text, text::TextLess, &BrowserRow::text);
    return static_cast<std::size_t>(place - rows_.begin());
}

void BrowserList::Insert(std::size_t place, BrowserRow row) {
    Change({.kind = RowsChange::Kind::Insert, .row = place}, [&] {
        names_[row.key] = row.text;
        rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(place), std::move(row));
    });
}

void BrowserList::Renew(std::size_t row, std::size_t place, BrowserRow renewed) {
    if (place < row || place > row + 1) Move(row, place);
    const std::size_t now = place > row ? place - 1 : place;
    Change({.kind = RowsChange::Kind::Renew, .row = now}, [&] {
        names_[renewed.key] = renewed.text;
        rows_[now] = std::move(renewed);
    });
}

void BrowserList::Move(std::size_t from, std::size_t to) {
    Change({.kind = RowsChange::Kind::Move, .row = from, .to = to}, [&] { MoveRow(rows_, from, to); });
}

void BrowserList::Change(const RowsChange& change, const std::function<void()>& apply) {
    watcher_ ? watcher_(change, apply) : apply();
}

}  // namespace tessel
