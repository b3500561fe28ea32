#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/questions.h"
#include "schema/component_state.h"
#include "ui/rules/column_row.h"

namespace tessel {

enum class PropertiesTab { Columns, Indexes, Keys, ReferencedBy };

// What is fixed about a tab; texts by their numbers.
struct PropertiesTabInfo {
    const char* key;  // in the tab strip
    int caption;
    std::vector<int> headers;
    int dropActivity;
    int dropQuestion;
    int dropFailure;
    host::Icon dropFailureIcon;
    int renameActivity;
    int renameFailure;
};
[[nodiscard]] const PropertiesTabInfo& InfoOf(PropertiesTab tab);

// A column, an index or a key as the properties pane lists it.
struct PropertyRow {
    std::string key;  // "c", "i" or "k" and the identifier
    std::int32_t identifier = -1;
    std::string text;
    std::string icon;                   // its key; empty for none
    std::vector<std::string> subItems;  // under the headers after the first
    std::string tag;                    // the origin reference
    std::string comment;                // as stored
};

// Where a key's row keeps what is renewed after an edit.
namespace sub_item {
inline constexpr std::size_t keyColumns = 0;
inline constexpr std::size_t keyRefColumns = 2;
inline constexpr std::size_t keyOnDelete = 3;
inline constexpr std::size_t keyComment = 4;
}  // namespace sub_item

// The rows of a table's tab, in their order. Database errors are thrown.
[[nodiscard]] std::vector<PropertyRow> ReadPropertyRows(ComponentState& state, PropertiesTab tab,
                                                        std::int32_t tabID);

[[nodiscard]] std::string IndexKey(std::int32_t indexID);  // "i" and the IndexID
[[nodiscard]] PropertyRow ColumnPropertyRow(const ColumnRow& column, bool isKey);
[[nodiscard]] PropertyRow NewIndexRow(std::int32_t indexID, const std::string& name);

}  // namespace tessel
