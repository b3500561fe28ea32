#include "ui/dialogs/options_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QScrollArea>
#include <QSpinBox>
#include <QStyle>
#include <limits>

#include "ui/dialogs/fields.h"
#include "ui/rules/help_contexts.h"
#include "ui/rules/twips.h"

namespace tessel {

namespace {

constexpr int titleText = 2100;

void Name(QWidget& control, const char* prefix, const Option& option) {
    control.setObjectName(prefix + QString::fromStdString(option.name));
    control.setAccessibleDescription(Caption(option.hint));
}

void AddRow(QFormLayout& form, const Option& option, QWidget* control) {
    form.addRow(CaptionLabel("", Caption(option.caption), control), control);
}

void AddHint(QFormLayout& form, const Option& option) {
    if (option.hint.empty()) return;
    auto* hint = CaptionLabel("", Caption(option.hint));
    hint->setWordWrap(true);
    hint->setIndent(hint->style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                    hint->style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));
    form.addRow(hint);
}

}  // namespace

OptionsDialog::OptionsDialog(ComponentState& state, QWidget* owner, OptionCase& rules, QSize size)
    : Dialog(state, "frmOptions", help_context::options, owner), rules_(rules), size_(size) {
    setWindowTitle(Text(titleText));
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    form->setContentsMargins({});
    for (const auto& option : rules_.Root().options) Add(*form, option);
    area->setWidget(page);
    area->setMinimumWidth(page->minimumSizeHint().width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    Body().addWidget(area);
}

void OptionsDialog::Add(QFormLayout& form, const Option& option) {
    switch (option.kind) {
        case Option::Kind::Bool:
            AddBool(form, option);
            break;
        case Option::Kind::Text:
            AddText(form, option);
            break;
        case Option::Kind::Number:
            AddNumber(form, option);
            break;
        case Option::Kind::List:
            AddList(form, option);
            break;
        case Option::Kind::Group:
            return AddGroup(form, option);
    }
    AddHint(form, option);
}

void OptionsDialog::AddBool(QFormLayout& form, const Option& option) {
    auto* box = new QCheckBox(Caption(option.caption));
    Name(*box, "chk", option);
    box->setChecked(option.value == "True");
    form.addRow(box);
    fields_.emplace_back(&option, [box] { return std::string(box->isChecked() ? "True" : "False"); });
}

void OptionsDialog::AddText(QFormLayout& form, const Option& option) {
    auto* line = new TextLine(option.value);
    Name(*line, "txt", option);
    AddRow(form, option, line);
    fields_.emplace_back(&option, [line] { return line->Text(); });
}

void OptionsDialog::AddNumber(QFormLayout& form, const Option& option) {
    auto* box = new QSpinBox;
    Name(*box, "num", option);
    box->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    box->setValue(std::stoi(option.value));
    AddRow(form, option, box);
    fields_.emplace_back(&option, [box] { return std::to_string(box->value()); });
}

void OptionsDialog::AddList(QFormLayout& form, const Option& option) {
    auto* box = new QComboBox;
    Name(*box, "cmb", option);
    for (const auto& item : option.items)
        box->addItem(Caption(item.caption), QString::fromStdString(item.value));
    box->setCurrentIndex(box->findData(QString::fromStdString(option.value)));
    AddRow(form, option, box);
    fields_.emplace_back(&option, [box, &option] {
        return box->currentIndex() < 0 ? option.value : box->currentData().toString().toStdString();
    });
}

void OptionsDialog::AddGroup(QFormLayout& form, const Option& option) {
    auto* group = new QGroupBox(Caption(option.caption));
    Name(*group, "fra", option);
    auto* inner = new QFormLayout(group);
    AddHint(*inner, option);
    for (const auto& child : option.options) Add(*inner, child);
    form.addRow(group);
}

bool OptionsDialog::Confirm() {
    for (const auto& [option, value] : fields_) rules_.Set(*option, value());
    rules_.Save();
    return true;
}

bool EditProjectOptions(ComponentState& state, QWidget* owner, const std::string& casePath, QSize twips) {
    const auto options = state.Frontend().ProjectOptions();
    OptionCase rules(*options, casePath, *state.texts);
    return OptionsDialog(state, owner, rules, twips / twipsPerPixel).Run();
}

}  // namespace tessel
