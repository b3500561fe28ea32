#pragma once

#include <string>
#include <string_view>

#include "report/page_file.h"
#include "schema/component_state.h"

namespace tessel {

// Writes the parts of a table's section: its columns, its keys, the keys of other tables that refer to it,
// its indexes. All but the columns are left out where there are none.
class TableSections {
  public:
    TableSections(ComponentState& state, PageFile& page) : state_(state), page_(page) {}

    void Write(std::int32_t tabID);

  private:
    struct KeyList;  // what sets the keys of a table and those that refer to it apart

    void WriteColumns(std::int32_t tabID);
    void WriteColumn(const db::Query& column, const Collection& primaryKey);
    void WriteKeys(std::int32_t tabID, const KeyList& list);
    void WriteKey(const db::Query& key, const KeyList& list);
    void WriteIndexes(std::int32_t tabID);
    void WriteIndex(const db::Query& index);
    [[nodiscard]] std::string IndexColumns(std::int32_t indexID);

    // The section's heading, the start of its table and the row of column headings, all by the numbers of
    // their texts.
    void StartSection(int heading, std::initializer_list<int> columns);
    void WriteCell(std::string_view content, std::string_view alignment = {});
    [[nodiscard]] const std::string& Text(int number) const { return state_.texts->Text(number); }

    ComponentState& state_;
    PageFile& page_;
};

}  // namespace tessel
