#include "ui/controls/list_view.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace tessel {

namespace {

int Combined(const QKeyEvent& event) {
    const int key = event.key() == Qt::Key_Enter ? int(Qt::Key_Return) : event.key();
    return QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(key)).toCombined();
}

}  // namespace

ListView::ListView(const char* name, QWidget* parent) : QTreeView(parent), delegate_(new ListDelegate(this)) {
    setObjectName(name);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setItemDelegate(delegate_);
    setEditTriggers(SelectedClicked);
    setContextMenuPolicy(Qt::PreventContextMenu);
    header()->setSectionsMovable(false);
    const auto popup = [this] { emit PopupWanted(PlaceOfCurrent()); };
    OnKey(Qt::SHIFT | Qt::Key_F10, popup);
    OnKey(Qt::Key_Menu, popup);
}

void ListView::OnKey(QKeyCombination key, std::function<void()> act) {
    commands_[key.toCombined()] = std::move(act);
}

void ListView::keyPressEvent(QKeyEvent* event) {
    const int key = Combined(*event);
    if (!commands_.contains(key)) return QTreeView::keyPressEvent(event);
    pressed_ = key;
}

void ListView::keyReleaseEvent(QKeyEvent* event) {
    const bool ours = pressed_ != 0 && (pressed_ & ~int(Qt::KeyboardModifierMask)) ==
                                           (Combined(*event) & ~int(Qt::KeyboardModifierMask));
    if (!ours || event->isAutoRepeat()) return QTreeView::keyReleaseEvent(event);
    commands_.at(std::exchange(pressed_, 0))();
}

void ListView::mousePressEvent(QMouseEvent* event) {
    button_ = event->button();
    QTreeView::mousePressEvent(event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton && button_ == Qt::RightButton)
        emit PopupWanted(event->globalPosition().toPoint());
}

void ListView::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    emit FocusGot();
}

QPoint ListView::PlaceOfCurrent() const {
    const QRect row = visualRect(currentIndex());
    return viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint());
}

}  // namespace tessel
