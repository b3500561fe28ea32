#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "ui/dialogs/dialog.h"
#include "ui/dialogs/form_control.h"

class QFormLayout;

namespace tessel {

// The dialog frmForm, which shows each field of a form by a control whose objectName is the field's key. What
// does not fit the window is scrolled.
class FormDialog : public Dialog {
  public:
    FormDialog(ComponentState& state, const host::Form& form, QWidget* owner);

    // The values under the keys of their fields; none when the user cancelled.
    [[nodiscard]] std::shared_ptr<Collection> Fill();

    void done(int result) override;

  protected:
    [[nodiscard]] QString OKCaption() const override;

  private:
    void Add(QFormLayout& page, const host::FormField& field);

    QString okCaption_;
    std::vector<std::pair<std::string, FormControl>> controls_;
};

}  // namespace tessel
