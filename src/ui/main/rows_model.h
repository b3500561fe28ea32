#pragma once

#include <QAbstractTableModel>

#include "ui/rules/rows_change.h"

namespace tessel {

// A model over rows whose owner announces each change of them.
class RowsModel : public QAbstractTableModel {
  protected:
    // What a watcher of the rows does: makes the change, and tells the views of it.
    void Follow(const RowsChange& change, const std::function<void()>& apply);
};

}  // namespace tessel
