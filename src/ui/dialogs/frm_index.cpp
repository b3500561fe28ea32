#include "ui/dialogs/frm_index.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QToolButton>

#include "ui/controls/connect.h"
#include "ui/dialogs/column_list.h"
#include "ui/dialogs/fields.h"
#include "ui/dialogs/short_comment.h"
#include "ui/rules/help_contexts.h"

namespace tessel {

namespace {

using enum IndexDialog::List;
using enum IndexDialog::Direction;

constexpr int availableText = 2515;
constexpr int inIndexText = 2516;
constexpr int typeText = 2517;
constexpr int iconText = 2518;
constexpr int primaryText = 2519;
constexpr int uniqueText = 2520;
constexpr int commentText = 2521;
constexpr int addText = 2522;
constexpr int removeText = 2523;
constexpr int upText = 2524;
constexpr int downText = 2525;
constexpr int directionText = 2526;

// A button that only bears an arrow; a click leaves the focus where it is.
QToolButton* ArrowButton(const char* name, Qt::ArrowType arrow, const QString& meaning) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setAccessibleName(meaning);
    button->setToolTip(meaning);
    return button;
}

}  // namespace

bool frmIndex::Edit(ComponentState& state, QWidget* owner, IndexDialog& rules) {
    return frmIndex(state, owner, rules).Run();
}

frmIndex::frmIndex(ComponentState& state, QWidget* owner, IndexDialog& rules)
    : Dialog(state, "frmIndex", help_context::indexDialog, owner),
      rules_(rules),
      lvColumns_{new ColumnList("lvColumns_0"), new ColumnList("lvColumns_1")},
      lblType_{ValueLabel("lblType_0", {}), ValueLabel("lblType_1", {})},
      cmdAdd_{ArrowButton("cmdAdd_0", Qt::RightArrow, Text(addText)),
              ArrowButton("cmdAdd_1", Qt::LeftArrow, Text(removeText))},
      cmdMove_{ArrowButton("cmdMove_0", Qt::UpArrow, Text(upText)),
               ArrowButton("cmdMove_1", Qt::DownArrow, Text(downText))},
      cmdDesc_(Named<QPushButton>("cmdDesc")),
      chkPrimary_(Named<QCheckBox>("chkPrimary", Text(primaryText))),
      chkUnique_(Named<QCheckBox>("chkUnique", Text(uniqueText))),
      txtComment_(new ShortComment("txtComment", rules.Comment(), Text(commentText).remove('&'))) {
    setWindowTitle(Caption(rules_.Caption()));
    cmdDesc_->setToolTip(Text(directionText));
    lvColumns_[Available]->SetHeaders({Text(availableText), Text(typeText), Text(iconText)});
    lvColumns_[InIndex]->SetHeaders({Text(inIndexText), Text(typeText), Text(iconText)});
    Body().addLayout(Lists(), 1);
    Body().addLayout(Checks());
    Body().addWidget(CaptionLabel("lblComment", Text(commentText), txtComment_));
    Body().addWidget(txtComment_);
    ListenTo(Available);
    ListenTo(InIndex);
    ListenToButtons();
    Refresh();
    lvColumns_[Available]->setFocus();
}

QLayout* frmIndex::Lists() {
    auto* grid = new QGridLayout;
    grid->addWidget(lvColumns_[Available], 0, 0);
    grid->addLayout(AddButtons(), 0, 1);
    grid->addWidget(lvColumns_[InIndex], 0, 2);
    grid->addLayout(OrderButtons(), 0, 3);
    grid->addWidget(lblType_[Available], 1, 0);
    grid->addWidget(lblType_[InIndex], 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(0, 1);
    return grid;
}

QLayout* frmIndex::AddButtons() {
    auto* buttons = new QVBoxLayout;
    buttons->addStretch();
    for (auto* button : cmdAdd_) buttons->addWidget(button, 0, Qt::AlignHCenter);
    buttons->addStretch();
    return buttons;
}

QLayout* frmIndex::OrderButtons() {
    auto* buttons = new QVBoxLayout;
    buttons->addStretch();
    for (auto* button : cmdMove_) buttons->addWidget(button, 0, Qt::AlignHCenter);
    buttons->addWidget(cmdDesc_);
    buttons->addStretch();
    return buttons;
}

QLayout* frmIndex::Checks() {
    auto* checks = new QHBoxLayout;
    checks->addWidget(chkPrimary_);
    checks->addWidget(chkUnique_);
    checks->addStretch();
    return checks;
}

void frmIndex::ListenTo(IndexDialog::List list) {
    lvColumns_[list]->OnSelect([this, list](std::optional<std::size_t> row) {
        rules_.Select(list, row);
        Refresh();
    });
    const auto add = [this, list] {
        rules_.Add(list);
        Refresh();
    };
    lvColumns_[list]->OnEnter(add);
    lvColumns_[list]->OnKey(list == Available ? Qt::Key_Insert : Qt::Key_Delete, add);
    Connect(cmdAdd_[list], &QAbstractButton::clicked, this, add);
}

void frmIndex::ListenToButtons() {
    const std::pair<IndexDialog::Direction, Qt::Key> keys[] = {{Up, Qt::Key_Up}, {Down, Qt::Key_Down}};
    for (const auto& [direction, key] : keys) {
        const auto move = [this, towards = direction] {
            rules_.Move(towards);
            Refresh();
        };
        Connect(cmdMove_[direction], &QAbstractButton::clicked, this, move);
        lvColumns_[InIndex]->OnKey(Qt::CTRL | key, move);
    }
    Connect(cmdDesc_, &QAbstractButton::clicked, this, [this] {
        rules_.SwitchDirection();
        Refresh();
    });
    Connect(chkPrimary_, &QCheckBox::clicked, this, [this](bool checked) {
        rules_.SetPrimary(checked);
        Refresh();
    });
    Connect(chkUnique_, &QCheckBox::clicked, this, [this](bool checked) {
        rules_.SetUnique(checked);
        Refresh();
    });
}

void frmIndex::Refresh() {
    for (const auto list : {Available, InIndex}) RefreshList(list);
    for (const auto direction : {Up, Down}) cmdMove_[direction]->setEnabled(rules_.CanMove(direction));
    cmdDesc_->setEnabled(rules_.CanSwitchDirection());
    cmdDesc_->setText(Caption(rules_.DirectionCaption()));
    chkPrimary_->setChecked(rules_.IsPrimary());
    chkPrimary_->setEnabled(rules_.IsPrimaryEnabled());
    chkUnique_->setChecked(rules_.IsUnique());
}

void frmIndex::RefreshList(IndexDialog::List list) {
    std::vector<ColumnItem> items;
    for (const auto& row : rules_.Rows(list))
        items.push_back(
            {.columnID = row.column.columnID,
             .texts = {QString::fromStdString(row.column.name), QString::fromStdString(row.column.typeText),
                       QString::fromStdString(row.ownIcon)},
             .icon = QString::fromStdString(row.icon)});
    lvColumns_[list]->Show(std::move(items), rules_.Selected(list));
    lblType_[list]->setText(QString::fromStdString(rules_.TypeLabel(list)));
    cmdAdd_[list]->setEnabled(rules_.CanAdd(list));
}

bool frmIndex::Confirm() {
    rules_.EditComment(txtComment_->Text());
    return rules_.OK();
}

}  // namespace tessel
