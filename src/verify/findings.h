#pragma once

#include <initializer_list>
#include <string_view>

#include "verify/db_check.h"

namespace tessel {

// What a finding is about, as the three numbers of its row in Errors. 0 stands for no key and no column; the
// key -1 marks what belongs to a column or an index.
struct Place {
    std::int32_t tblID;
    std::int32_t keyID;
    std::int32_t columnID;

    static Place Table(std::int32_t table) { return {table, 0, 0}; }
    static Place Column(std::int32_t table, std::int32_t column) { return {table, -1, column}; }
    static Place Index(std::int32_t table) { return {table, -1, 0}; }
    static Place Key(std::int32_t table, std::int32_t key) { return {table, key, 0}; }
    static Place KeyColumn(std::int32_t table, std::int32_t key, std::int32_t column) {
        return {table, key, column};
    }
};

// What a rule says when it is broken: the number of its text.
enum class Rule {
    TableNameEmpty = 502,
    TableNameIllegal = 503,
    NoColumns = 504,
    ColumnNameEmpty = 505,
    PrecisionTooLarge = 506,  // type
    ScaleTooLarge = 507,      // type
    IndexEmpty = 508,         // index
    UniqueNullable = 509,     // index, column
    RefersToItself = 510,     // column
    KeyEmpty = 511,           // key
    NoUniqueIndex = 512,      // key
    TypeMismatch = 513,       // key
};

// The rules read the schema and record what breaks them.
class Findings {
  public:
    Findings(ComponentState& state, DBCheck& check) : state_(state), check_(check) {}

    // `names` fill the placeholders of the rule's text.
    void Record(const Place& place, Rule rule, std::initializer_list<std::string_view> names = {}) {
        check_.AddError(place.tblID, place.keyID, place.columnID,
                        state_.texts->Format(static_cast<int>(rule), names));
    }
    [[nodiscard]] db::Query Select(const std::string& sql) { return state_.Database().Select(sql); }
    [[nodiscard]] ComponentState& State() { return state_; }

  private:
    ComponentState& state_;
    DBCheck& check_;
};

// Each checks what belongs to one table.
void CheckTableName(Findings& findings, std::int32_t tabID, const std::string& tableName);
void CheckColumns(Findings& findings, std::int32_t tabID);
void CheckIndexes(Findings& findings, std::int32_t tabID);
void CheckForeignKeys(Findings& findings, std::int32_t tabID);

}  // namespace tessel
