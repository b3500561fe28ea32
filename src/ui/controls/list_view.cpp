#include "ui/controls/list_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "ui/controls/connect.h"

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
    // The editor of a label passes on the keys that it has no use for.
    if (IsEditing()) return QTreeView::keyPressEvent(event);
    if ((key == Qt::Key_Down || key == Qt::Key_Up) && SelectFramed()) return;
    if (!commands_.contains(key)) return QTreeView::keyPressEvent(event);
    pressed_.insert(key);
}

void ListView::keyReleaseEvent(QKeyEvent* event) {
    const auto key = [](int combined) { return combined & ~int(Qt::KeyboardModifierMask); };
    const auto pressed = std::ranges::find(pressed_, key(Combined(*event)), key);
    if (pressed == pressed_.end() || event->isAutoRepeat()) return QTreeView::keyReleaseEvent(event);
    const auto act = commands_.at(*pressed);
    pressed_.erase(pressed);
    Guard(act);
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

// Qt frames the first row without selecting it, and no command would take it.
bool ListView::SelectFramed() {
    if (!currentIndex().isValid() || selectionModel()->hasSelection()) return false;
    selectionModel()->select(currentIndex(), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    return true;
}

void ListView::focusOutEvent(QFocusEvent* event) {
    QTreeView::focusOutEvent(event);
    pressed_.clear();
}

QPoint ListView::PlaceOfCurrent() const {
    const QRect row = visualRect(currentIndex());
    return viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint());
}

}  // namespace tessel
