#pragma once

#include "platform/text/texts.h"
#include "ui/controls/image_list.h"
#include "ui/main/rows_model.h"
#include "ui/rules/browser_list.h"

namespace tessel {

// The browser's list as a view shows it: the tables in rows, name and description in columns. Both outlive
// the model, which is the list's one watcher.
class BrowserModel : public RowsModel {
  public:
    enum Column { Name, Description, ColumnCount };

    BrowserModel(BrowserList& list, const text::Texts& texts);
    ~BrowserModel() override;

    // The icon of the schema, which stands over the tables.
    void UseSchemaIcon(const QString& path) { images_.Add("DBSchema", path); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;  // names can be edited

  private:
    BrowserList& list_;
    const text::Texts& texts_;
    ImageList images_;
};

}  // namespace tessel
