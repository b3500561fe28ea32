#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/frontend.h"
#include "platform/db/database.h"
#include "tessel/value.h"
#include "ui/rules/rows_change.h"

namespace tessel {

// A table as the browser shows it.
struct BrowserRow {
    std::string key;          // "t" and the TabID
    std::string text;         // the table's name
    std::string description;  // its comment on one line
    std::string tag;          // its origin reference

    bool operator==(const BrowserRow&) const = default;
};

// The tables that the browser lists, sorted by name without regard to ASCII case.
class BrowserList {
  public:
    void Watch(RowsWatcher watcher) { watcher_ = std::move(watcher); }

    [[nodiscard]] const std::vector<BrowserRow>& Rows() const { return rows_; }
    [[nodiscard]] std::optional<std::size_t> Find(std::string_view key) const;

    // Reads all tables anew, with their origin references. A database error is thrown and leaves the list as
    // it was.
    void Refresh(db::Database& database, host::Frontend& frontend);

    // Adds the table, or renews its row. A tag or comment that is Missing stays as it is.
    void Draw(const std::string& name, std::int32_t tabID, const Value& tag, const Value& comments);

    void Remove(std::string_view key);  // nothing when it is not there

  private:
    [[nodiscard]] std::size_t PlaceOf(const std::string& text) const;
    void Insert(std::size_t place, BrowserRow row);
    void Renew(std::size_t row, std::size_t place, BrowserRow renewed);
    void Move(std::size_t from, std::size_t to);
    void Change(const RowsChange& change, const std::function<void()>& apply);

    std::vector<BrowserRow> rows_;
    std::unordered_map<std::string, std::string> names_;  // by key
    RowsWatcher watcher_;
};

}  // namespace tessel
