#pragma once

#include <QAbstractTableModel>

#include "ui/rules/browser_list.h"

namespace tessel {

// A model over rows whose owner announces each change of them.
class RowsModel : public QAbstractTableModel {
  protected:
    // What a watcher of the rows does: makes the change, and tells the views of it.
    void Follow(const BrowserChange& change, const std::function<void()>& apply);
};

}  // namespace tessel
