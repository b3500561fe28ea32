#pragma once

#include <QSize>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ui/dialogs/dialog.h"
#include "ui/rules/option_case.h"

class QFormLayout;

namespace tessel {

// The dialog frmOptions, which shows the options of a case, each under its name: chkNAME, txtNAME, numNAME,
// cmbNAME, and fraNAME for a group.
class OptionsDialog : public Dialog {
  public:
    // `size` is the one at first use, in pixels. The rules outlive the dialog.
    OptionsDialog(ComponentState& state, QWidget* owner, OptionCase& rules, QSize size);

    [[nodiscard]] QSize sizeHint() const override { return size_; }

  private:
    void Add(QFormLayout& form, const Option& option);
    void AddBool(QFormLayout& form, const Option& option);
    void AddText(QFormLayout& form, const Option& option);
    void AddNumber(QFormLayout& form, const Option& option);
    void AddList(QFormLayout& form, const Option& option);
    void AddGroup(QFormLayout& form, const Option& option);
    [[nodiscard]] bool Confirm() override;

    OptionCase& rules_;
    QSize size_;
    // What gives each option its value.
    std::vector<std::pair<const Option*, std::function<std::string()>>> fields_;
};

// Lets the user edit the options of the case at the XPath in the host's project options, and keeps them;
// false when the user cancelled. `twips` is the dialog's size at first use. A tree without that case throws
// ErrorKind::Xml.
[[nodiscard]] bool EditProjectOptions(ComponentState& state, QWidget* owner, const std::string& casePath,
                                      QSize twips);

}  // namespace tessel
