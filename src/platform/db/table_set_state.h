#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/db/engine.h"

namespace tessel::db {

struct TableSet::State {
    State(Database::Engine& owner, std::shared_ptr<const TableInfo> info)
        : engine(owner), table(std::move(info)) {}

    struct Row {
        Value rowId;  // the engine's own number of the row
        std::vector<Value> values;
    };

    enum class Pending { None, New, Change };

    // Throw DatabaseError when there is no such thing.
    [[nodiscard]] const Row& Current() const;
    void RequirePending() const;

    // Makes the first row of the condition the current one; false, and no current row, when there is none.
    bool ReadCurrent(const std::string& condition, const std::vector<Value>& values);
    void Insert();
    void Update();

    Database::Engine& engine;
    std::shared_ptr<const TableInfo> table;
    const TableInfo::Index* index = nullptr;
    std::optional<Row> current;
    Pending pending = Pending::None;
    std::vector<std::optional<Value>> changes;  // of the pending row, by field
};

}  // namespace tessel::db
