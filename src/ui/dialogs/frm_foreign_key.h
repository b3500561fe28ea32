#pragma once

#include <array>

#include "ui/dialogs/dialog.h"
#include "ui/rules/foreign_key_dialog.h"

class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;

namespace tessel {

class ColumnList;
class ShortComment;
class LinkLines;

// The foreign-key dialog. Enter or a double click leads to the partner of a column; Insert links the selected
// columns and Delete unlinks the left one.
class frmForeignKey : public Dialog {
  public:
    // Lets the user edit the key over `owner`. True once OK has written it: the rules then say what to show
    // of it.
    [[nodiscard]] static bool Edit(ComponentState& state, QWidget* owner, ForeignKeyDialog& rules);

  private:
    frmForeignKey(ComponentState& state, QWidget* owner, ForeignKeyDialog& rules);

    [[nodiscard]] QLayout* Lists();
    void AddSide(QGridLayout& grid, ForeignKeyDialog::List list);
    void AddLinks(QGridLayout& grid);
    [[nodiscard]] QLayout* DeleteRule();
    [[nodiscard]] int Spacing() const;
    void ListenTo(ForeignKeyDialog::List list);
    void ListenToButtons();
    void FollowLines();
    void Refresh();
    void RefreshList(ForeignKeyDialog::List list);
    [[nodiscard]] bool Confirm() override;

    ForeignKeyDialog& rules_;
    std::array<ColumnList*, 2> lvColumns_;
    std::array<QGroupBox*, 2> frDetails_;
    std::array<QLabel*, 2> lblType_;
    LinkLines* lines_;
    QPushButton* cmdLink_;
    QPushButton* cmdUnlink_;
    QComboBox* cmbIndex_;
    QComboBox* cmbOnDelete_;
    ShortComment* txtComment_;
};

}  // namespace tessel
