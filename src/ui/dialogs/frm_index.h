#pragma once

#include <array>

#include "ui/dialogs/dialog.h"
#include "ui/rules/index_dialog.h"

class QAbstractButton;
class QCheckBox;
class QLabel;

namespace tessel {

class ColumnList;
class ShortComment;

// The index dialog. Enter or a double click moves a column across, as do Insert and Delete; Ctrl+Up and
// Ctrl+Down move one within the index.
class frmIndex : public Dialog {
  public:
    // Lets the user edit the index over `owner`. True once OK has written it: the rules then say what to show
    // of it.
    [[nodiscard]] static bool Edit(ComponentState& state, QWidget* owner, IndexDialog& rules);

  private:
    frmIndex(ComponentState& state, QWidget* owner, IndexDialog& rules);

    [[nodiscard]] QLayout* Lists();
    [[nodiscard]] QLayout* AddButtons();
    [[nodiscard]] QLayout* OrderButtons();
    [[nodiscard]] QLayout* Checks();
    void ListenTo(IndexDialog::List list);
    void ListenToButtons();
    void Refresh();
    void RefreshList(IndexDialog::List list);
    [[nodiscard]] bool Confirm() override;

    IndexDialog& rules_;
    std::array<ColumnList*, 2> lvColumns_;
    std::array<QLabel*, 2> lblType_;
    std::array<QAbstractButton*, 2> cmdAdd_;
    std::array<QAbstractButton*, 2> cmdMove_;
    QAbstractButton* cmdDesc_;
    QCheckBox* chkPrimary_;
    QCheckBox* chkUnique_;
    ShortComment* txtComment_;
};

}  // namespace tessel
