#pragma once

#include "ui/dialogs/dialog.h"
#include "ui/rules/new_key_dialog.h"

class QComboBox;
class QLineEdit;

namespace tessel {

// The new-key dialog.
class frmCreateKey : public Dialog {
  public:
    // Lets the user name a new foreign key and choose its referenced table, over `owner`. Returns the
    // identifier of the key that OK made, or -1.
    [[nodiscard]] static std::int32_t InputKey(ComponentState& state, QWidget* owner, NewKeyDialog& rules);

  private:
    frmCreateKey(ComponentState& state, QWidget* owner, NewKeyDialog& rules);

    void Refresh();
    [[nodiscard]] bool Confirm() override { return rules_.OK(); }

    NewKeyDialog& rules_;
    QLineEdit* txtKeyName_;
    QComboBox* cmbTables_;
};

}  // namespace tessel
