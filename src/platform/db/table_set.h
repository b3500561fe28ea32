#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "tessel/value.h"

namespace tessel::db {

// A record set on one table: rows are sought by an engine index, edited one at a time, or added. AddNew, Edit
// and Seek give up a row that is pending; saving a new row leaves the current one as it was. Field names are
// taken in any letter case; an unknown one throws ErrorKind::Sql.
class TableSet {
  public:
    struct State;  // within this room
    explicit TableSet(std::unique_ptr<State> state);
    ~TableSet();  // gives up a pending row
    TableSet(TableSet&&) noexcept;

    // Makes an engine index the current one: "PrimaryKey", or the name of another index of the table.
    void SetIndex(std::string_view index);

    // Finds the row whose indexed fields, or the first of them, equal the values, and makes it the current
    // one. False when there is none; then there is no current row. Text compares without regard to case
    // within ASCII only.
    bool Seek(std::initializer_list<Value> values);

    // Begins a new row. Its identifier, where the table has one, can be read before the row is saved; a
    // cancelled row leaves a gap in the identifiers.
    void AddNew();
    // Begins to change the current row.
    void Edit();

    // Sets a field of the pending row: dates become ISO text, Booleans 0 and 1; in a text field Booleans and
    // numbers become what ToText gives. Text that is longer than the field's declared size, no UTF-8 or holds
    // a NUL throws ErrorKind::Constraint; Missing, objects and collections Argument.
    void Set(std::string_view field, const Value& value);
    // A field of the pending row, or else of the current one. A new row's unset fields read as Null.
    [[nodiscard]] Value Get(std::string_view field) const;

    // Stores the pending row; one that breaks a rule of its table throws ErrorKind::Constraint.
    void Save();
    void Cancel();  // gives the pending row up; nothing when there is none

    // The declared size of a text field in characters; 0 when it may be any length.
    [[nodiscard]] int FieldSize(std::string_view field) const;

  private:
    std::unique_ptr<State> state_;
};

}  // namespace tessel::db
