#pragma once

#include "ui/controls/image_list.h"
#include "ui/main/rows_model.h"
#include "ui/rules/properties_list.h"

namespace tessel {

// The properties list as a view shows it. The list outlives the model, which is its one watcher.
class PropertiesModel : public RowsModel {
  public:
    explicit PropertiesModel(PropertiesList& list);
    ~PropertiesModel() override;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;  // names can be edited

  private:
    PropertiesList& list_;
    ImageList images_;
    QIcon blank_;
};

}  // namespace tessel
