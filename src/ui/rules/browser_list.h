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

namespace tessel {

// A table as the browser shows it.
struct BrowserRow {
    std::string key;          // "t" and the TabID
    std::string text;         // the table's name
    std::string description;  // its comment on one line
    std::string tag;          // its origin reference

    bool operator==(const BrowserRow&) const = default;
};

// A change of the rows that is about to happen. Rows count from 0, as they stand before the change.
struct BrowserChange {
    enum class Kind { Insert, Remove, Move, Renew, Reset };
    Kind kind;
    std::size_t row = 0;  // of Insert: the row that the new one goes before; of Reset: unused
    std::size_t to = 0;   // of Move: the row that the moved one goes before

    bool operator==(const BrowserChange&) const = default;
};

// The tables that the browser lists, sorted by name without regard to ASCII case.
class BrowserList {
  public:
    // Is told of each change and makes it by calling `apply` exactly once.
    using Watcher = std::function<void(const BrowserChange&, const std::function<void()>& apply)>;
    void Watch(Watcher watcher) { watcher_ = std::move(watcher); }

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
    void Change(const BrowserChange& change, const std::function<void()>& apply);

    std::vector<BrowserRow> rows_;
    std::unordered_map<std::string, std::string> names_;  // by key
    Watcher watcher_;
};

}  // namespace tessel
