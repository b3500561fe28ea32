#pragma once

#include <QWidget>
#include <optional>

#include "platform/text/texts.h"
#include "ui/controls/pane_button.h"

namespace tessel {

// The title bar of a pane: the caption, cut off with a tooltip where it has no room, and the buttons
// "cmdMaximise" and "cmdClose". It says what the user wants and changes nothing itself. Positions are global.
class PaneTitle : public QWidget {
    Q_OBJECT

  public:
    struct State {
        QString caption;
        bool isActive = false;
        bool isMaximised = false;
    };

    PaneTitle(const text::Texts& texts, QWidget* parent);

    void Show(const State& state);

  Q_SIGNALS:
    void Pressed();
    void MaximiseWanted();
    void CloseWanted();
    void MenuWanted(QPoint position);
    void Dragged(QPoint position);  // any number of times, then one of the next two
    void Dropped();
    void DragCancelled();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void PlaceButtons();
    [[nodiscard]] QRect CaptionPlace() const;
    [[nodiscard]] QString ShownCaption() const;
    [[nodiscard]] bool EndDrag();  // whether there was one

    const text::Texts& texts_;
    State state_;
    PaneButton* maximise_;
    PaneButton* close_;
    std::optional<QPoint> pressedAt_;
    bool isDragging_ = false;
};

}  // namespace tessel
