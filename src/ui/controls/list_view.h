#pragma once

#include <QKeyCombination>
#include <QTreeView>
#include <functional>
#include <map>
#include <set>

#include "ui/controls/list_delegate.h"

namespace tessel {

// A list of rows under column headers. The commands that it offers act when their key is released over it,
// so that a dialog which one of them opens never sees that key.
class ListView : public QTreeView {
    Q_OBJECT

  public:
    ListView(const char* name, QWidget* parent);

    // Calls `act` when the key, pressed in the list, is released. Enter counts as Return.
    void OnKey(QKeyCombination key, std::function<void()> act);
    // An edit of an item's label that is refused starts again.
    void OnRename(ListDelegate::Rename rename) { delegate_->OnRename(std::move(rename)); }

    [[nodiscard]] bool IsEditing() const { return state() == EditingState; }

  signals:
    // A context menu is wanted at this place of the screen: the right button was released, or Shift+F10 or
    // the menu key.
    void PopupWanted(const QPoint& place);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    [[nodiscard]] QPoint PlaceOfCurrent() const;
    bool SelectFramed();  // whether there was a framed row and no selection

    ListDelegate* delegate_;
    std::map<int, std::function<void()>> commands_;  // by key and modifiers
    std::set<int> pressed_;                          // those of them whose key is down
    Qt::MouseButton button_ = Qt::NoButton;          // the one pressed last
};

}  // namespace tessel
