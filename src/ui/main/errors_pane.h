#pragma once

#include <QAbstractTableModel>

#include "platform/text/texts.h"
#include "schema/tool_window.h"
#include "ui/controls/image_list.h"
#include "ui/controls/list_view.h"

namespace tessel {

// The rows of the errors list: table and message.
class ErrorsModel : public QAbstractTableModel {
  public:
    enum Column { Table, Message, ColumnCount };

    explicit ErrorsModel(const text::Texts& texts) : texts_(texts), images_(ErrorImages()) {}

    void Show(std::vector<ErrorRow> errors);
    [[nodiscard]] const ErrorRow& Error(int row) const { return errors_[static_cast<std::size_t>(row)]; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const text::Texts& texts_;
    ImageList images_;
    std::vector<ErrorRow> errors_;
};

// The pane Errors: the list lvErrors of what verification found, in the colours of tooltips, its headers
// hidden while it is empty.
class ErrorsPane : public QObject {
    Q_OBJECT

  public:
    explicit ErrorsPane(const text::Texts& texts);

    [[nodiscard]] ListView& View() const { return *lvErrors_; }
    void Show(const std::vector<ErrorRow>& errors);  // in place of those it held

  signals:
    void ErrorChosen(const tessel::ErrorRow& error);  // by a double click or Enter

  private:
    [[nodiscard]] int WidthOfTables(const std::vector<ErrorRow>& errors) const;  // pixels

    ErrorsModel model_;
    ListView* lvErrors_;
};

}  // namespace tessel
