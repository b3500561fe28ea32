#include "ui/dialogs/frm_foreign_key.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimer>

#include "ui/controls/connect.h"
#include "ui/dialogs/choices.h"
#include "ui/dialogs/column_list.h"
#include "ui/dialogs/fields.h"
#include "ui/dialogs/link_lines.h"
#include "ui/dialogs/short_comment.h"
#include "ui/rules/help_contexts.h"

namespace tessel {

namespace {

using enum ForeignKeyDialog::List;

constexpr int columnsText = 2530;
constexpr int refColumnsText = 2531;
constexpr int typeText = 2517;
constexpr int linkText = 2532;
constexpr int unlinkText = 2533;
constexpr int onDeleteText = 2534;
constexpr int indexText = 2535;
constexpr int commentText = 2521;

constexpr int linesInterval = 300;  // milliseconds

QGroupBox* Frame(const char* name, QLabel* type) {
    auto* frame = new QGroupBox;
    frame->setObjectName(name);
    // A long name is cut off, and does not widen the dialog.
    frame->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    (new QVBoxLayout(frame))->addWidget(type);
    return frame;
}

}  // namespace

bool frmForeignKey::Edit(ComponentState& state, QWidget* owner, ForeignKeyDialog& rules) {
    return frmForeignKey(state, owner, rules).Run();
}

frmForeignKey::frmForeignKey(ComponentState& state, QWidget* owner, ForeignKeyDialog& rules)
    : Dialog(state, "frmForeignKey", help_context::foreignKeyDialog, owner),
      rules_(rules),
      lvColumns_{new ColumnList("lvColumns_0"), new ColumnList("lvColumns_1")},
      lblType_{ValueLabel("lblType_0", {}), ValueLabel("lblType_1", {})},
      lines_(new LinkLines(*lvColumns_[Referencing], *lvColumns_[Referenced])),
      cmdLink_(Named<QPushButton>("cmdLink", Text(linkText))),
      cmdUnlink_(Named<QPushButton>("cmdUnlink", Text(unlinkText))),
      cmbIndex_(ChoiceBox("cmbIndex", rules.IndexNames())),
      cmbOnDelete_(ChoiceBox("cmbOnDelete", rules.DeleteRules())),
      txtComment_(new ShortComment("txtComment", rules.Comment(), Text(commentText).remove('&'))) {
    setWindowTitle(Caption(rules_.Caption()));
    frDetails_ = {Frame("frDetails_0", lblType_[Referencing]), Frame("frDetails_1", lblType_[Referenced])};
    lvColumns_[Referencing]->SetHeaders({Text(columnsText), Text(typeText)});
    lvColumns_[Referenced]->SetHeaders({Text(refColumnsText), Text(typeText)});
    cmbIndex_->setAccessibleName(Text(indexText));
    cmbIndex_->setToolTip(Text(indexText));
    Body().addLayout(Lists(), 1);
    Body().addWidget(CaptionLabel("lblComment", Text(commentText), txtComment_));
    Body().addWidget(txtComment_);
    ListenTo(Referencing);
    ListenTo(Referenced);
    ListenToButtons();
    FollowLines();
    Refresh();
    lvColumns_[Referencing]->setFocus();
}

// The lists stand at both ends of the lines without a gap.
QLayout* frmForeignKey::Lists() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(0);
    AddSide(*grid, Referencing);
    AddSide(*grid, Referenced);
    AddLinks(*grid);
    grid->addWidget(cmbIndex_, 3, 2);
    grid->addLayout(DeleteRule(), 3, 0);
    grid->setRowStretch(1, 1);
    return grid;
}

void frmForeignKey::AddSide(QGridLayout& grid, ForeignKeyDialog::List list) {
    const int column = list == Referencing ? 0 : 2;
    const char* name = list == Referencing ? "lblTable_0" : "lblTable_1";
    grid.addWidget(ValueLabel(name, QString::fromStdString(rules_.TableName(list))), 0, column);
    grid.addWidget(lvColumns_[list], 1, column);
    grid.addWidget(frDetails_[list], 2, column);
    grid.setColumnStretch(column, 1);
}

void frmForeignKey::AddLinks(QGridLayout& grid) {
    grid.addWidget(lines_, 1, 1);
    auto* buttons = new QVBoxLayout;
    buttons->setContentsMargins(Spacing(), 0, Spacing(), 0);
    buttons->addWidget(cmdLink_);
    buttons->addWidget(cmdUnlink_);
    grid.addLayout(buttons, 2, 1, 2, 1);
}

int frmForeignKey::Spacing() const { return style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing); }

QLayout* frmForeignKey::DeleteRule() {
    auto* row = new QHBoxLayout;
    row->setSpacing(Spacing());
    row->addWidget(CaptionLabel("lblOnDelete", Text(onDeleteText), cmbOnDelete_));
    row->addWidget(cmbOnDelete_, 1);
    return row;
}

void frmForeignKey::ListenTo(ForeignKeyDialog::List list) {
    lvColumns_[list]->OnSelect([this, list](std::optional<std::size_t> row) {
        rules_.Select(list, row);
        Refresh();
    });
    lvColumns_[list]->OnEnter([this, list] {
        rules_.SelectPartner(list);
        Refresh();
        ColumnList& other = *lvColumns_[1 - list];
        if (other.Selected()) other.scrollTo(other.currentIndex());
    });
    lvColumns_[list]->OnKey(Qt::Key_Insert, [this] { cmdLink_->click(); });
    lvColumns_[list]->OnKey(Qt::Key_Delete, [this] { cmdUnlink_->click(); });
}

void frmForeignKey::ListenToButtons() {
    Connect(cmdLink_, &QPushButton::clicked, this, [this] {
        rules_.Link();
        Refresh();
    });
    Connect(cmdUnlink_, &QPushButton::clicked, this, [this] {
        rules_.Unlink();
        Refresh();
    });
    OnChoice(*cmbIndex_, [this](std::size_t index) {
        rules_.SelectIndex(index);
        Refresh();
    });
    OnChoice(*cmbOnDelete_, [this](std::size_t rule) { rules_.SelectDeleteRule(rule); });
}

void frmForeignKey::FollowLines() {
    for (auto* list : lvColumns_)
        Connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { lines_->Follow(); });
    auto* timer = new QTimer(this);
    timer->setObjectName("tmrLines");
    Connect(timer, &QTimer::timeout, this, [this] { lines_->Follow(); });
    timer->start(linesInterval);
}

void frmForeignKey::Refresh() {
    for (const auto list : {Referencing, Referenced}) RefreshList(list);
    cmdLink_->setEnabled(rules_.CanLink());
    cmdUnlink_->setEnabled(rules_.CanUnlink());
    ShowChoice(*cmbIndex_, rules_.Index());
    ShowChoice(*cmbOnDelete_, rules_.DeleteRule());
    lines_->SetLinks(rules_.Links());
}

void frmForeignKey::RefreshList(ForeignKeyDialog::List list) {
    std::vector<ColumnItem> items;
    for (const auto& row : rules_.Rows(list))
        items.push_back(
            {.columnID = row.column.columnID,
             .texts = {QString::fromStdString(row.column.name), QString::fromStdString(row.column.typeText)},
             .icon = QString::fromStdString(row.icon),
             .isBold = row.isBold,
             .isRed = row.isRed});
    lvColumns_[list]->Show(std::move(items), rules_.Selected(list));
    const QString name = QString::fromStdString(rules_.DetailsName(list));
    frDetails_[list]->setTitle(QString(name).replace('&', "&&"));
    frDetails_[list]->setToolTip(Qt::convertFromPlainText(name));
    lblType_[list]->setText(QString::fromStdString(rules_.DetailsType(list)));
}

bool frmForeignKey::Confirm() {
    rules_.EditComment(txtComment_->Text());
    return rules_.OK();
}

}  // namespace tessel
