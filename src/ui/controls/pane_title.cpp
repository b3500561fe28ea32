#include "ui/controls/pane_title.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "ui/controls/pane_texts.h"

namespace tessel {

namespace {

constexpr int margin = 6;
constexpr double idleGround = 0.10;
constexpr double idleInk = 0.80;

}  // namespace

PaneTitle::PaneTitle(const text::Texts& texts, QWidget* parent)
    : QWidget(parent),
      texts_(texts),
      maximise_(new PaneButton("cmdMaximise", PaneButton::Sign::Maximise, this)),
      close_(new PaneButton("cmdClose", PaneButton::Sign::Close, this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    PlaceButtons();
    connect(maximise_, &PaneButton::clicked, this, &PaneTitle::MaximiseWanted);
    connect(close_, &PaneButton::clicked, this, &PaneTitle::CloseWanted);
}

void PaneTitle::PlaceButtons() {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(margin, 1, 1, 1);
    row->setSpacing(1);
    row->addStretch(1);
    row->addWidget(maximise_);
    row->addWidget(close_);
}

void PaneTitle::Show(const State& state) {
    state_ = state;
    const auto meaning = [&](int number) {
        return QString::fromStdString(texts_.Format(number, {state.caption.toStdString()}));
    };
    maximise_->SetSign(state.isMaximised ? PaneButton::Sign::Restore : PaneButton::Sign::Maximise,
                       meaning(state.isMaximised ? pane_text::restorePane : pane_text::maximisePane));
    close_->SetSign(PaneButton::Sign::Close, meaning(pane_text::closePane));
    for (QWidget* part :
         {static_cast<QWidget*>(this), static_cast<QWidget*>(maximise_), static_cast<QWidget*>(close_)})
        part->setForegroundRole(state.isActive ? QPalette::HighlightedText : QPalette::WindowText);
    setAccessibleName(state.caption);
    update();
}

QRect PaneTitle::CaptionPlace() const {
    return rect().adjusted(margin, 0, maximise_->x() - margin - width(), 0);
}

QString PaneTitle::ShownCaption() const {
    return fontMetrics().elidedText(state_.caption, Qt::ElideRight, CaptionPlace().width());
}

bool PaneTitle::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const bool isCutOff = ShownCaption() != state_.caption;
    const QString tip = isCutOff ? "<p>" + state_.caption.toHtmlEscaped() + "</p>" : QString();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, this);
    return true;
}

void PaneTitle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ink = palette().color(foregroundRole());
    painter.setOpacity(state_.isActive ? 1 : idleGround);
    painter.fillRect(rect(), state_.isActive ? palette().color(QPalette::Highlight) : ink);
    painter.setOpacity(state_.isActive ? 1 : idleInk);
    painter.setPen(ink);
    painter.drawText(CaptionPlace(), Qt::AlignVCenter | Qt::TextSingleLine, ShownCaption());
}

void PaneTitle::contextMenuEvent(QContextMenuEvent* event) { Q_EMIT MenuWanted(event->globalPos()); }

void PaneTitle::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    pressedAt_ = event->pos();
    Q_EMIT Pressed();
}

void PaneTitle::mouseMoveEvent(QMouseEvent* event) {
    if (!pressedAt_) return;
    if (!isDragging_) {
        if ((event->pos() - *pressedAt_).manhattanLength() < QApplication::startDragDistance()) return;
        isDragging_ = true;
        grabKeyboard();  // for Escape
        setCursor(Qt::SizeAllCursor);
    }
    Q_EMIT Dragged(event->globalPosition().toPoint());
}

void PaneTitle::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && EndDrag()) Q_EMIT Dropped();
}

void PaneTitle::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT MaximiseWanted();
}

void PaneTitle::keyPressEvent(QKeyEvent* event) {
    if (!isDragging_) return QWidget::keyPressEvent(event);
    if (event->key() == Qt::Key_Escape && EndDrag()) Q_EMIT DragCancelled();
}

void PaneTitle::hideEvent(QHideEvent*) {
    if (EndDrag()) Q_EMIT DragCancelled();
}

bool PaneTitle::EndDrag() {
    pressedAt_.reset();
    if (!isDragging_) return false;
    isDragging_ = false;
    releaseKeyboard();
    unsetCursor();
    return true;
}

}  // namespace tessel
