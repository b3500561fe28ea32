#include "ui/dialogs/frm_column.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <map>

#include "ui/controls/connect.h"
#include "ui/controls/image_list.h"
#include "ui/dialogs/choices.h"
#include "ui/dialogs/fields.h"
#include "ui/dialogs/filter_line.h"
#include "ui/rules/help_contexts.h"
#include "ui/rules/icon_keys.h"

namespace tessel {

namespace {

constexpr int titleText = 2500;
constexpr int generalText = 2501;
constexpr int commentsText = 2502;
constexpr int nameText = 2503;
constexpr int tableText = 2504;
constexpr int typeText = 2505;
constexpr int precisionText = 2506;
constexpr int scaleText = 2507;
constexpr int allowNullsText = 2508;
constexpr int withDefaultText = 2509;
constexpr int saveAsDefaultText = 2510;
constexpr int defaultText = 2511;
constexpr int primaryKeyText = 2512;

constexpr int fieldSpan = 2;  // in columns of the grid: beside a name stands the key

}  // namespace

bool frmColumn::Edit(ComponentState& state, QWidget* owner, ColumnDialog& rules) {
    return frmColumn(state, owner, rules).Run();
}

frmColumn::frmColumn(ComponentState& state, QWidget* owner, ColumnDialog& rules)
    : Dialog(state, "frmColumn", help_context::columnDialog, owner),
      rules_(rules),
      tabs_(new QTabWidget),
      cmbType_(ChoiceBox("cmbType", rules.TypeNames())),
      txtPrecision_(Named<QLineEdit>("txtPrecision")),
      txtScale_(Named<QLineEdit>("txtScale")),
      lblPrecision_(CaptionLabel("lblPrecision", Text(precisionText), txtPrecision_)),
      lblScale_(CaptionLabel("lblScale", Text(scaleText), txtScale_)),
      chkAllowNulls_(Named<QCheckBox>("chkAllowNulls", Text(allowNullsText))),
      chkWithDefault_(Named<QCheckBox>("chkWithDefault", Text(withDefaultText))),
      txtDefault_(Named<QLineEdit>("txtDefault")),
      txtComment_(new CommentBox("txtComment", rules.Comment(), Text(commentsText).remove('&'))) {
    setWindowTitle(Text(titleText));
    tabs_->setObjectName("SSTab1");
    tabs_->addTab(GeneralPage(), Text(generalText));
    tabs_->addTab(CommentPage(txtComment_), Text(commentsText));
    Body().addWidget(tabs_);
    ListenToFields();
    rules_.WatchFocus([this](ColumnDialog::Field field) { Focus(field); });
    Refresh();
    cmbType_->setFocus();
}

frmColumn::~frmColumn() { rules_.WatchFocus(nullptr); }

QWidget* frmColumn::GeneralPage() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    AddHeading(*grid);
    AddFields(*grid);
    auto* cmdDefault = Named<QPushButton>("cmdDefault", Text(saveAsDefaultText));
    Connect(cmdDefault, &QPushButton::clicked, this, &frmColumn::SaveAsDefault);
    grid->setRowStretch(grid->rowCount(), 1);
    grid->addWidget(cmdDefault, grid->rowCount(), 0, 1, fieldSpan + 1, Qt::AlignRight);
    grid->setColumnStretch(1, 1);
    return page;
}

void frmColumn::AddHeading(QGridLayout& grid) {
    grid.addWidget(CaptionLabel("lblName", Text(nameText)), 0, 0);
    grid.addWidget(ValueLabel("lblColumnName", QString::fromStdString(rules_.ColumnName())), 0, 1);
    grid.addWidget(CaptionLabel("lblTable", Text(tableText)), 1, 0);
    grid.addWidget(ValueLabel("lblTableName", QString::fromStdString(rules_.TableName())), 1, 1);
    auto* imgKey = PictureLabel("imgKey", BrowserImages().Icon(icon::key));
    imgKey->setToolTip(Text(primaryKeyText));
    imgKey->setAccessibleName(Text(primaryKeyText));
    grid.addWidget(imgKey, 0, 2, 2, 1);
    imgKey->setVisible(rules_.IsKey());
}

void frmColumn::AddFields(QGridLayout& grid) {
    txtDefault_->setAccessibleName(Text(defaultText));
    LiftLimit(*txtDefault_);
    const std::pair<QWidget*, QWidget*> fields[] = {
        {CaptionLabel("lblType", Text(typeText), cmbType_), cmbType_},
        {lblPrecision_, txtPrecision_},
        {lblScale_, txtScale_},
        {chkAllowNulls_, nullptr},
        {chkWithDefault_, txtDefault_}};
    for (const auto& [label, field] : fields) {
        const int row = grid.rowCount();
        grid.addWidget(label, row, 0, 1, field ? 1 : fieldSpan + 1);
        if (field) grid.addWidget(field, row, 1, 1, fieldSpan);
    }
}

void frmColumn::ListenToFields() {
    OnChoice(*cmbType_, [this](std::size_t type) {
        rules_.SelectType(type);
        Refresh();
    });
    const auto refresh = [this] { Refresh(); };
    FilterLine(
        *txtPrecision_, [this](const auto& text, auto caret) { return rules_.EditPrecision(text, caret); },
        refresh);
    FilterLine(
        *txtScale_, [this](const auto& text, auto caret) { return rules_.EditScale(text, caret); }, refresh);
    Connect(chkAllowNulls_, &QCheckBox::clicked, this,
            [this](bool checked) { rules_.SetAllowNulls(checked); });
    Connect(chkWithDefault_, &QCheckBox::clicked, this, [this](bool checked) {
        rules_.SetWithDefault(checked);
        Refresh();
    });
    Connect(txtDefault_, &QLineEdit::textEdited, this,
            [this](const QString& text) { rules_.EditDefault(text.toStdString()); });
}

void frmColumn::Refresh() {
    ShowChoice(*cmbType_, rules_.Type());
    ShowText(*txtPrecision_, rules_.Precision());
    ShowText(*txtScale_, rules_.Scale());
    ShowText(*txtDefault_, rules_.Default());
    for (QWidget* control : {static_cast<QWidget*>(lblPrecision_), static_cast<QWidget*>(txtPrecision_)})
        control->setEnabled(rules_.IsPrecisionEnabled());
    for (QWidget* control : {static_cast<QWidget*>(lblScale_), static_cast<QWidget*>(txtScale_)})
        control->setEnabled(rules_.IsScaleEnabled());
    chkAllowNulls_->setChecked(rules_.AllowNulls());
    chkWithDefault_->setChecked(rules_.WithDefault());
    txtDefault_->setEnabled(rules_.IsDefaultEnabled());
}

void frmColumn::Focus(ColumnDialog::Field field) {
    const std::map<ColumnDialog::Field, QWidget*> controls = {{ColumnDialog::Field::Type, cmbType_},
                                                              {ColumnDialog::Field::Precision, txtPrecision_},
                                                              {ColumnDialog::Field::Scale, txtScale_},
                                                              {ColumnDialog::Field::Default, txtDefault_}};
    Refresh();
    tabs_->setCurrentIndex(0);
    controls.at(field)->setFocus();
}

void frmColumn::SaveAsDefault() {
    rules_.SaveAsDefault();
    Refresh();
}

bool frmColumn::Confirm() {
    rules_.EditComment(txtComment_->Text());
    const bool done = rules_.OK();
    Refresh();
    return done;
}

}  // namespace tessel
