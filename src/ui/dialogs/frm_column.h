#pragma once

#include "ui/dialogs/dialog.h"
#include "ui/rules/column_dialog.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QTabWidget;

namespace tessel {

class CommentBox;

// The column dialog.
class frmColumn : public Dialog {
  public:
    // Lets the user edit the column over `owner`. True once OK has written it: the rules then say what to
    // show of it.
    [[nodiscard]] static bool Edit(ComponentState& state, QWidget* owner, ColumnDialog& rules);

  private:
    frmColumn(ComponentState& state, QWidget* owner, ColumnDialog& rules);
    ~frmColumn() override;

    [[nodiscard]] QWidget* GeneralPage();
    void AddHeading(QGridLayout& grid);
    void AddFields(QGridLayout& grid);
    void ListenToFields();
    void Refresh();
    void Focus(ColumnDialog::Field field);
    void SaveAsDefault();
    [[nodiscard]] bool Confirm() override;

    ColumnDialog& rules_;
    QTabWidget* tabs_;
    QComboBox* cmbType_;
    QLineEdit* txtPrecision_;
    QLineEdit* txtScale_;
    QLabel* lblPrecision_;
    QLabel* lblScale_;
    QCheckBox* chkAllowNulls_;
    QCheckBox* chkWithDefault_;
    QLineEdit* txtDefault_;
    CommentBox* txtComment_;
};

}  // namespace tessel
