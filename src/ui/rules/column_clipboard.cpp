#include "ui/rules/column_clipboard.h"

#include <algorithm>

namespace tessel {

void ColumnClipboard::Take(std::vector<Column> columns, Mark mark) {
    columns_ = std::move(columns);
    mark_ = mark;
}

void ColumnClipboard::Remove(std::int32_t columnID) {
    std::erase_if(columns_, [=](const Column& column) { return column.columnID == columnID; });
}

bool ColumnClipboard::IsCut(std::int32_t columnID) const {
    return IsCut() && std::ranges::find(columns_, columnID, &Column::columnID) != columns_.end();
}

}  // namespace tessel
