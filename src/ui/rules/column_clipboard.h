#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessel {

// The columns that were marked to be pasted, of any table, in the order of marking.
class ColumnClipboard {
  public:
    enum class Mark { Cut, Copied };

    struct Column {
        std::int32_t columnID = -1;
        std::string name;  // when it was marked
    };

    // In place of what was marked before.
    void Take(std::vector<Column> columns, Mark mark);
    void Remove(std::int32_t columnID);  // nothing when it is not there

    [[nodiscard]] const std::vector<Column>& Columns() const { return columns_; }
    [[nodiscard]] bool IsCut() const { return mark_ == Mark::Cut; }
    [[nodiscard]] bool IsCut(std::int32_t columnID) const;  // it is among the columns that were cut

  private:
    std::vector<Column> columns_;
    Mark mark_ = Mark::Copied;
};

}  // namespace tessel
