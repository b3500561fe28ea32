#include "ui/dialogs/form_dialog.h"

#include <QFormLayout>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

#include "ui/dialogs/fields.h"

namespace tessel {

namespace {

constexpr int longCaption = 40;  // characters

// As large as what it scrolls, where the screen has the room.
class FormArea : public QScrollArea {
  public:
    explicit FormArea(QWidget* page) {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setWidget(page);
        setMinimumWidth(Bounded(page->minimumSizeHint()).width());
    }
    [[nodiscard]] QSize sizeHint() const override { return Bounded(widget()->sizeHint()); }

  private:
    [[nodiscard]] QSize Bounded(QSize page) const {
        page.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        return page.boundedTo(screen()->availableSize() * 3 / 4);
    }
};

QLabel* LabelOf(const host::FormField& field, QWidget* control) {
    const QString caption = Caption(field.caption);
    auto* label = CaptionLabel("", caption, control);
    label->setWordWrap(caption.size() > longCaption);
    return label;
}

}  // namespace

FormDialog::FormDialog(ComponentState& state, const host::Form& form, QWidget* owner)
    : Dialog(state, "frmForm", form.helpContext, owner), okCaption_(Caption(form.okCaption)) {
    setWindowTitle(form.title.empty() ? Caption(state.Title()) : Caption(form.title));
    auto* page = new QWidget;
    auto* rows = new QFormLayout(page);
    rows->setContentsMargins({});
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    if (!form.text.empty()) rows->addRow(ValueLabel("lblText", Caption(form.text)));
    for (const auto& field : form.fields) Add(*rows, field);
    Body().addWidget(new FormArea(page));
    if (!controls_.empty()) controls_.front().second.widget->setFocus(Qt::TabFocusReason);
}

void FormDialog::Add(QFormLayout& page, const host::FormField& field) {
    FormControl control = MakeFormControl(State(), field);
    if (control.place == FormControl::Place::BesideCaption) {
        page.addRow(LabelOf(field, control.widget), control.widget);
    } else {
        if (control.place != FormControl::Place::WithCaption && !field.caption.empty())
            page.addRow(LabelOf(field, control.widget));
        page.addRow(control.widget);
    }
    controls_.emplace_back(field.key, std::move(control));
}

std::shared_ptr<Collection> FormDialog::Fill() {
    if (!Run()) return nullptr;
    auto values = std::make_shared<Collection>();
    for (const auto& [key, control] : controls_)
        if (control.value) values->Add(control.value(), key);
    return values;
}

QString FormDialog::OKCaption() const { return okCaption_.isEmpty() ? Dialog::OKCaption() : okCaption_; }

// The size that suits one form does not suit the next.
void FormDialog::done(int result) { QDialog::done(result); }

}  // namespace tessel
