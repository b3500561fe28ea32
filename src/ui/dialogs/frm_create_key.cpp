#include "ui/dialogs/frm_create_key.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

#include "ui/dialogs/choices.h"
#include "ui/dialogs/fields.h"
#include "ui/dialogs/filter_line.h"
#include "ui/rules/help_contexts.h"

namespace tessel {

namespace {

constexpr int nameText = 2540;
constexpr int refersText = 2541;

constexpr int nameWidth = 40;  // characters

}  // namespace

std::int32_t frmCreateKey::InputKey(ComponentState& state, QWidget* owner, NewKeyDialog& rules) {
    return frmCreateKey(state, owner, rules).Run() ? rules.KeyID() : -1;
}

frmCreateKey::frmCreateKey(ComponentState& state, QWidget* owner, NewKeyDialog& rules)
    : Dialog(state, "frmCreateKey", help_context::newKeyDialog, owner),
      rules_(rules),
      txtKeyName_(new QLineEdit),
      cmbTables_(ChoiceBox("cmbTables", rules.TableNames())) {
    setWindowTitle(Caption(rules_.Caption()));
    txtKeyName_->setObjectName("txtKeyName");
    txtKeyName_->setMinimumWidth(nameWidth * fontMetrics().averageCharWidth());
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(CaptionLabel("lblKeyName", Text(nameText), txtKeyName_), txtKeyName_);
    form->addRow(CaptionLabel("lblRefers", Text(refersText), cmbTables_), cmbTables_);
    Body().addLayout(form);
    FilterLine(
        *txtKeyName_, [this](const auto& text, auto caret) { return rules_.EditName(text, caret); },
        [this] { Refresh(); });
    OnChoice(*cmbTables_, [this](std::size_t table) {
        rules_.SelectTable(table);
        Refresh();
    });
    Refresh();
    txtKeyName_->setFocus();
}

void frmCreateKey::Refresh() {
    ShowText(*txtKeyName_, rules_.KeyName());
    ShowChoice(*cmbTables_, rules_.Table());
    OKButton().setEnabled(rules_.CanOK());
}

}  // namespace tessel
