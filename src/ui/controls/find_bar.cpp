#include "ui/controls/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

namespace tessel {

FindBar::FindBar(QWidget& view, QWidget* parent, Finder find)
    : QWidget(parent),
      view_(view),
      find_(std::move(find)),
      txtFind_(new QLineEdit),
      lblNotFound_(new QLabel) {
    txtFind_->setObjectName("txtFind");
    txtFind_->setClearButtonEnabled(true);
    lblNotFound_->setObjectName("lblNotFound");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 4, 4, 4);
    row->addWidget(txtFind_, 2);
    row->addWidget(lblNotFound_, 1);
    hide();
    connect(txtFind_, &QLineEdit::textEdited, lblNotFound_, &QLabel::clear);
}

void FindBar::SetTexts(const QString& prompt, const QString& notFound) {
    txtFind_->setPlaceholderText(prompt);
    txtFind_->setAccessibleName(prompt);
    notFound_ = notFound;
}

void FindBar::Open() {
    show();
    txtFind_->setFocus();
    txtFind_->selectAll();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return Close();
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QWidget::keyPressEvent(event);
    const bool backward = event->modifiers() & Qt::ShiftModifier;
    FindNext(backward ? QTextDocument::FindBackward : QTextDocument::FindFlags());
}

void FindBar::FindNext(QTextDocument::FindFlags flags) {
    const bool found = txtFind_->text().isEmpty() || find_(txtFind_->text(), flags);
    lblNotFound_->setText(found ? QString() : notFound_);
}

void FindBar::Close() {
    hide();
    view_.setFocus();
}

}  // namespace tessel
