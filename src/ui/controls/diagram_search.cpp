#include "ui/controls/diagram_search.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace tessel {

namespace {

constexpr int findText = 2600;
constexpr int countText = 2601;  // %1 of %2
constexpr int notFoundText = 2602;
constexpr int previousText = 2603;
constexpr int nextText = 2604;
constexpr int closeText = 2605;

}  // namespace

DiagramSearch::DiagramSearch(const diagram::Content& content, const text::Texts& texts, QWidget* parent)
    : QWidget(parent), content_(content), texts_(texts), txtFind_(new QLineEdit), lblFound_(new QLabel) {
    const QString prompt = QString::fromStdString(texts.Text(findText));
    txtFind_->setObjectName("txtFind");
    txtFind_->setPlaceholderText(prompt);
    txtFind_->setAccessibleName(prompt);
    txtFind_->setClearButtonEnabled(true);
    lblFound_->setObjectName("lblFound");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 4, 4, 4);
    row->addWidget(txtFind_, 2);
    row->addWidget(lblFound_, 1);
    row->addWidget(AddButton("cmdFindPrevious", "\u25B2", previousText));
    row->addWidget(AddButton("cmdFindNext", "\u25BC", nextText));
    row->addWidget(AddButton("cmdFindClose", "\u2715", closeText));
    connect(findChild<QToolButton*>("cmdFindPrevious"), &QToolButton::clicked, this,
            [this] { FindNext(true); });
    connect(findChild<QToolButton*>("cmdFindNext"), &QToolButton::clicked, this, [this] { FindNext(false); });
    connect(findChild<QToolButton*>("cmdFindClose"), &QToolButton::clicked, this,
            &DiagramSearch::CloseWanted);
    connect(txtFind_, &QLineEdit::textEdited, this, [this] { Look(); });
    hide();
}

QToolButton* DiagramSearch::AddButton(const char* name, const QString& sign, int tooltip) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(sign);
    button->setAutoRaise(true);
    button->setToolTip(QString::fromStdString(texts_.Text(tooltip)));
    button->setAccessibleName(button->toolTip());
    return button;
}

void DiagramSearch::Open(const QString& begin) {
    show();
    txtFind_->setFocus();
    if (begin.isEmpty())
        txtFind_->selectAll();
    else
        txtFind_->setText(begin);
    Look();
}

void DiagramSearch::Look() {
    chosen_ = 0;
    Refresh();
    if (!found_.empty()) emit Chosen(found_[chosen_]);
}

void DiagramSearch::Refresh() {
    found_ = isHidden() ? diagram::Content::Keys{} : BoxesWith(content_, txtFind_->text().toStdString());
    if (chosen_ >= found_.size()) chosen_ = 0;
    ShowCount();
    emit Found(found_);
}

void DiagramSearch::FindNext(bool backwards) {
    if (found_.empty()) return;
    chosen_ = (chosen_ + (backwards ? found_.size() - 1 : 1)) % found_.size();
    ShowCount();
    emit Chosen(found_[chosen_]);
}

void DiagramSearch::ShowCount() {
    QString text;
    if (!found_.empty())
        text = QString::fromStdString(
            texts_.Format(countText, {std::to_string(chosen_ + 1), std::to_string(found_.size())}));
    else if (!txtFind_->text().isEmpty())
        text = QString::fromStdString(texts_.Text(notFoundText));
    lblFound_->setText(text);
}

void DiagramSearch::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        emit CloseWanted();
    else if (isEnter || event->key() == Qt::Key_F3)
        FindNext(event->modifiers() & Qt::ShiftModifier);
    else
        QWidget::keyPressEvent(event);
}

}  // namespace tessel
