#pragma once

#include <QAbstractTableModel>

#include "platform/text/texts.h"
#include "ui/main/browser_list.h"

namespace tessel {

// The browser's list as a view shows it: the tables in rows, name and description in columns. Both outlive
// the model, which is the list's one watcher.
class BrowserModel : public QAbstractTableModel {
  public:
    enum Column { Name, Description, ColumnCount };

    BrowserModel(BrowserList& list, const text::Texts& texts);
    ~BrowserModel() override;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    void Follow(const BrowserChange& change, const std::function<void()>& apply);

    BrowserList& list_;
    const text::Texts& texts_;
};

}  // namespace tessel
