#pragma once

#include <QMap>
#include <QWidget>
#include <functional>
#include <utility>

#include "platform/text/texts.h"
#include "ui/controls/dock_preview.h"
#include "ui/controls/dock_target.h"
#include "ui/controls/pane_commands.h"
#include "ui/controls/pane_frame.h"

namespace tessel {

// The pane host: named panes that the user arranges. A pane has a title bar with its caption and two buttons,
// and below it its control; its widget is named "pane" and the pane's name. Panes are moved by dragging a
// title (onto an edge of another pane or of the host; onto a pane's middle the two swap), sized at the
// borders between them (a double click evens the two sides), maximised by a double click on the title, and
// all of that too in the menu of a title, which Alt+- opens for the active pane. F6 and Shift+F6 go to the
// next and to the previous visible pane.
//
// Names are ASCII letters and digits. Whatever names an unknown pane throws ErrorKind::Argument.
class TSplitter : public QWidget, private PaneCommands {
    Q_OBJECT

  public:
    // A part of the arrangement while it is built; good until the next Clear, import or move of a pane.
    using Region = PaneRegion*;
    enum class Redraw { Off, On };

    explicit TSplitter(const text::Texts& texts, QWidget* parent = nullptr);  // the texts outlive the host
    ~TSplitter() override;

    // Adds a pane: visible, its caption its name, in no region yet and therefore not seen. The control
    // becomes the pane's own.
    void AddPane(const QString& name, QWidget* control);
    [[nodiscard]] bool HasPane(const QString& name) const;

    [[nodiscard]] QString Caption(const QString& name) const;
    void SetCaption(const QString& name, const QString& caption);

    // A hidden pane's room goes to its neighbours, and comes back with it. A pane that is visible may still
    // be unseen because another one is maximised; showing a pane ends that.
    [[nodiscard]] bool IsPaneVisible(const QString& name) const;
    void SetPaneVisible(const QString& name, bool visible);

    // The active pane is the one that last had the focus, or another one when that is not seen any more;
    // there is none only when none is seen. Making a pane active moves the focus to its control unless it is
    // in there already, and ends that another one is maximised; a hidden pane stays inactive.
    [[nodiscard]] bool IsActive(const QString& name) const;
    void MakeActive(const QString& name);

    // The pane with its title bar, relative to the host; empty when it is not seen. Good before the host is
    // shown, too.
    [[nodiscard]] QRect PaneRectangle(const QString& name);

    // Building an arrangement. Clear takes every pane out and answers the one region that is left, the whole.
    // Split divides a region; `position` is in pixels from the region's left (Qt::Horizontal: the parts lie
    // side by side) or top (Qt::Vertical), in the host's present size with every pane visible. The names are
    // those of the panes that the two parts hold; a part without one may be split on.
    Region Clear();
    std::pair<Region, Region> Split(Region region, Qt::Orientation orientation, int position,
                                    const QString& first = {}, const QString& second = {});

    // While redrawing is off nothing is laid out and LayoutChanged waits; switched on again, both are made up
    // for at once.
    void SetRedraw(Redraw redraw);
    void Rearrange();  // lays out anew; nothing while redrawing is off

    // One line: nesting, order, proportions, captions, visibilities, the maximised pane. Import answers false
    // and changes nothing when the text is damaged or does not hold exactly the host's panes.
    [[nodiscard]] QString ExportLayout() const;
    [[nodiscard]] bool ImportLayout(const QString& text);

    // Takes all panes away from the screen. Their controls live on, hidden, as children of the host; captions
    // and visibilities can still be asked for and set, but nothing is laid out or signalled any more.
    void ReleasePanes();

    // Decides what the close button and the Close command of a pane do. Answers true when it has seen to it;
    // otherwise, and without a handler, the pane is hidden.
    using CloseHandler = std::function<bool(const QString& name)>;
    void SetCloseHandler(CloseHandler handler) { closeHandler_ = std::move(handler); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    // The arrangement or a pane's visibility is another one: once for each call or action of the user. Not
    // sent for a new size of the host.
    void LayoutChanged();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ToggleMaximised(const QString& name) override;
    void Close(const QString& name) override;
    void Dock(const QString& name, PaneEdge edge, const std::optional<QString>& target) override;
    void Swap(const QString& name, const QString& other) override;
    void Grow(const QString& name, PaneDirection direction, double change) override;

    void ListenToKeys();
    void ListenTo(const QString& name, PaneTitle& title);
    void FollowFocus(const QWidget* now);
    void GoToNextPane(int step);  // 1 or -1
    void OpenMenu(const QString& name, QPoint position);
    void DragTo(const QString& name, QPoint position);
    void Drop(const QString& name);
    void CancelDrag();

    void Changed();  // what is seen
    void Rebuilt();  // the regions, too
    void BuildBoxes();
    QWidget* BuildBox(PaneRegion& region);  // nullptr when no pane is in it
    void ShowSeen();
    void PlaceBoxes();
    void SettleActive();
    void Refresh();

    const text::Texts& texts_;
    PaneLayout layout_;
    QMap<QString, PaneFrame*> frames_;
    QWidget* root_ = nullptr;  // the outermost box, or the only pane
    DockPreview* preview_;
    std::optional<DockTarget> dockTarget_;
    CloseHandler closeHandler_;
    QString active_;
    Redraw redraw_ = Redraw::On;
    bool isRebuilt_ = false;  // since the last time that it was laid out
    bool isChanged_ = false;
};

}  // namespace tessel
