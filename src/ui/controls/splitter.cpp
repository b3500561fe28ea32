#include "ui/controls/splitter.h"

#include <QApplication>
#include <QPointer>
#include <QResizeEvent>
#include <QShortcut>
#include <algorithm>

#include "ui/controls/pane_menu.h"
#include "ui/controls/splitter_box.h"

namespace tessel {

namespace {

PaneDirection DirectionOf(Qt::Orientation orientation) {
    return orientation == Qt::Horizontal ? PaneDirection::SideBySide : PaneDirection::Stacked;
}

Qt::Orientation OrientationOf(PaneDirection direction) {
    return direction == PaneDirection::SideBySide ? Qt::Horizontal : Qt::Vertical;
}

}  // namespace

TSplitter::TSplitter(const text::Texts& texts, QWidget* parent)
    : QWidget(parent), texts_(texts), preview_(new DockPreview(this)) {
    ListenToKeys();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
}

// While the children go, the focus still wanders.
TSplitter::~TSplitter() { disconnect(qApp, nullptr, this, nullptr); }

void TSplitter::ListenToKeys() {
    const auto listen = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    listen(Qt::Key_F6, [this] { GoToNextPane(1); });
    listen(Qt::SHIFT | Qt::Key_F6, [this] { GoToNextPane(-1); });
    listen(Qt::ALT | Qt::Key_Minus, [this] {
        if (active_.isEmpty()) return;
        const PaneTitle& title = frames_[active_]->Title();
        OpenMenu(active_, title.mapToGlobal(title.rect().bottomLeft()));
    });
}

void TSplitter::AddPane(const QString& name, QWidget* control) {
    layout_.Add(name.toStdString());
    auto* frame = new PaneFrame(texts_, name, control, this);
    frames_.insert(name, frame);
    ListenTo(name, frame->Title());
    Refresh();
}

void TSplitter::ListenTo(const QString& name, PaneTitle& title) {
    connect(&title, &PaneTitle::Pressed, this, [=, this] { MakeActive(name); });
    connect(&title, &PaneTitle::MaximiseWanted, this, [=, this] { ToggleMaximised(name); });
    connect(&title, &PaneTitle::CloseWanted, this, [=, this] { Close(name); });
    connect(&title, &PaneTitle::MenuWanted, this, [=, this](QPoint position) { OpenMenu(name, position); });
    connect(&title, &PaneTitle::Dragged, this, [=, this](QPoint position) { DragTo(name, position); });
    connect(&title, &PaneTitle::Dropped, this, [=, this] { Drop(name); });
    connect(&title, &PaneTitle::DragCancelled, this, &TSplitter::CancelDrag);
}

bool TSplitter::HasPane(const QString& name) const { return layout_.Has(name.toStdString()); }

QString TSplitter::Caption(const QString& name) const {
    return QString::fromStdString(layout_.At(name.toStdString()).caption);
}

void TSplitter::SetCaption(const QString& name, const QString& caption) {
    layout_.At(name.toStdString()).caption = caption.toStdString();
    Refresh();
}

bool TSplitter::IsPaneVisible(const QString& name) const { return layout_.At(name.toStdString()).visible; }

void TSplitter::SetPaneVisible(const QString& name, bool visible) {
    if (visible == IsPaneVisible(name)) return;
    layout_.SetVisible(name.toStdString(), visible);
    Changed();
}

bool TSplitter::IsActive(const QString& name) const {
    return layout_.Has(name.toStdString()) && active_ == name;
}

void TSplitter::MakeActive(const QString& name) {
    if (!IsPaneVisible(name) || !layout_.Holder(name.toStdString())) return;
    active_ = name;
    if (!layout_.IsSeen(name.toStdString())) {
        layout_.SetMaximised("");
        Changed();
    }
    frames_[name]->FocusControl();
    Refresh();
}

QRect TSplitter::PaneRectangle(const QString& name) {
    if (!layout_.IsSeen(name.toStdString())) return {};
    if (!isVisible()) PlaceBoxes();
    const PaneFrame& frame = *frames_[name];
    return {frame.mapTo(this, QPoint()), frame.size()};
}

TSplitter::Region TSplitter::Clear() {
    PaneRegion& whole = layout_.Clear();
    Rebuilt();
    return &whole;
}

std::pair<TSplitter::Region, TSplitter::Region> TSplitter::Split(Region region, Qt::Orientation orientation,
                                                                 int position, const QString& first,
                                                                 const QString& second) {
    const PaneDirection direction = DirectionOf(orientation);
    const int whole = orientation == Qt::Horizontal ? width() : height();
    const double extent = whole * PaneLayout::ShareOfWhole(*region, direction);
    const double share = extent < 2 ? 0.5 : std::clamp<double>(position, 1, extent - 1) / extent;
    const auto parts = layout_.Split(*region, direction, share, first.toStdString(), second.toStdString());
    Rebuilt();
    return parts;
}

void TSplitter::SetRedraw(Redraw redraw) {
    redraw_ = redraw;
    if (isChanged_) Rearrange();
}

QString TSplitter::ExportLayout() const { return QString::fromStdString(layout_.Export()); }

bool TSplitter::ImportLayout(const QString& text) {
    if (!layout_.Import(text.toStdString())) return false;
    Rebuilt();
    return true;
}

void TSplitter::ReleasePanes() {
    disconnect(qApp, nullptr, this, nullptr);
    redraw_ = Redraw::Off;
    active_.clear();
    layout_.Clear();
    for (const PaneFrame* frame : frames_) frame->Control().setParent(this);
    BuildBoxes();
    qDeleteAll(std::exchange(frames_, {}));
}

QSize TSplitter::sizeHint() const { return minimumSizeHint().expandedTo({640, 480}); }

QSize TSplitter::minimumSizeHint() const {
    if (!root_ || root_->isHidden()) return {};
    return root_->minimumSizeHint().expandedTo(root_->minimumSize());
}

void TSplitter::resizeEvent(QResizeEvent*) { PlaceBoxes(); }

void TSplitter::ToggleMaximised(const QString& name) {
    const bool isMaximised = layout_.Maximised() == name.toStdString();
    layout_.SetMaximised(isMaximised ? "" : name.toStdString());
    Changed();
    MakeActive(name);
}

void TSplitter::Close(const QString& name) {
    if (!closeHandler_ || !closeHandler_(name)) SetPaneVisible(name, false);
}

void TSplitter::Dock(const QString& name, PaneEdge edge, const std::optional<QString>& target) {
    std::optional<std::string> at;
    if (target) at = target->toStdString();
    layout_.Dock(name.toStdString(), edge, at, target ? shareOfPane : shareOfHost);
    Rebuilt();
}

void TSplitter::Swap(const QString& name, const QString& other) {
    layout_.Swap(name.toStdString(), other.toStdString());
    Rebuilt();
}

void TSplitter::Grow(const QString& name, PaneDirection direction, double change) {
    layout_.Grow(name.toStdString(), direction, change);
    Rebuilt();
}

void TSplitter::FollowFocus(const QWidget* now) {
    if (!now) return;
    for (auto frame = frames_.begin(); frame != frames_.end(); ++frame)
        if (frame.value()->isAncestorOf(now)) active_ = frame.key();
    Refresh();
}

void TSplitter::GoToNextPane(int step) {
    std::vector<std::string> order = layout_.Order();
    std::erase_if(order, [this](const std::string& name) { return !layout_.At(name).visible; });
    const auto place = std::find(order.begin(), order.end(), active_.toStdString());
    if (place == order.end()) return;
    const auto next =
        static_cast<std::size_t>(place - order.begin()) + order.size() + static_cast<std::size_t>(step);
    MakeActive(QString::fromStdString(order[next % order.size()]));
}

void TSplitter::OpenMenu(const QString& name, QPoint position) {
    auto* menu = new PaneMenu(texts_, layout_, name, *this, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(position);
}

void TSplitter::DragTo(const QString& name, QPoint position) {
    QHash<QString, QRect> others;
    for (const QString& other : frames_.keys())
        if (other != name) others.insert(other, PaneRectangle(other));
    dockTarget_ = FindDockTarget(mapFromGlobal(position), rect(), others);
    preview_->ShowAt(dockTarget_ ? dockTarget_->place : QRect());
}

void TSplitter::Drop(const QString& name) {
    const std::optional<DockTarget> target = dockTarget_;
    CancelDrag();
    if (!target) return;
    if (target->edge)
        Dock(name, *target->edge, target->pane);
    else
        Swap(name, *target->pane);
}

void TSplitter::CancelDrag() {
    dockTarget_.reset();
    preview_->ShowAt({});
}

void TSplitter::Rebuilt() {
    isRebuilt_ = true;
    Changed();
}

void TSplitter::Changed() {
    isChanged_ = true;
    Rearrange();
}

void TSplitter::Rearrange() {
    if (redraw_ == Redraw::Off) return;
    const QPointer<QWidget> focus = window()->focusWidget();
    const bool hadFocus = focus && isAncestorOf(focus);
    if (std::exchange(isRebuilt_, false)) BuildBoxes();
    ShowSeen();
    PlaceBoxes();
    SettleActive();
    if (hadFocus && focus->isVisibleTo(this))
        focus->setFocus();
    else if (hadFocus && !active_.isEmpty())
        frames_[active_]->FocusControl();
    Refresh();
    updateGeometry();
    if (std::exchange(isChanged_, false)) Q_EMIT LayoutChanged();
}

void TSplitter::BuildBoxes() {
    for (PaneFrame* frame : frames_) frame->setParent(this);
    delete qobject_cast<SplitterBox*>(root_);
    root_ = BuildBox(layout_.Root());
    if (root_) root_->setParent(this);
}

QWidget* TSplitter::BuildBox(PaneRegion& region) {
    if (!region.IsDivided()) return frames_.value(QString::fromStdString(region.pane));
    QWidget* first = BuildBox(*region.first);
    QWidget* second = BuildBox(*region.second);
    if (!first || !second) return first ? first : second;
    auto* box = new SplitterBox(OrientationOf(region.direction), region.share, first, second);
    connect(box, &SplitterBox::ShareChanged, this, [this, &region](double share) {
        if (isRebuilt_) return;  // the region may be gone
        region.share = share;
        Changed();
    });
    return box;
}

namespace {

// A box is shown while a part of it is.
bool ShowBoxes(QWidget* part) {
    auto* box = qobject_cast<SplitterBox*>(part);
    if (!box) return part && !part->isHidden();
    const bool isFirstShown = ShowBoxes(box->widget(0));
    const bool isShown = ShowBoxes(box->widget(1)) || isFirstShown;
    box->setVisible(isShown);
    return isShown;
}

// From the outside in: a widget that is not shown yet learns of its size only when it is.
void PlaceParts(QWidget* part) {
    auto* box = qobject_cast<SplitterBox*>(part);
    if (!box) return;
    box->Arrange();
    PlaceParts(box->widget(0));
    PlaceParts(box->widget(1));
}

}  // namespace

void TSplitter::ShowSeen() {
    for (auto frame = frames_.begin(); frame != frames_.end(); ++frame)
        frame.value()->setVisible(layout_.IsSeen(frame.key().toStdString()));
    ShowBoxes(root_);
}

void TSplitter::PlaceBoxes() {
    if (!root_) return;
    root_->setGeometry(rect());
    PlaceParts(root_);
}

// A pane that is not seen any more passes the mark on to the next one that is.
void TSplitter::SettleActive() {
    if (!active_.isEmpty() && layout_.IsSeen(active_.toStdString())) return;
    std::vector<std::string> order = layout_.Order();
    const auto place = std::find(order.begin(), order.end(), active_.toStdString());
    if (place != order.end()) std::rotate(order.begin(), place, order.end());
    const auto next = std::find_if(order.begin(), order.end(),
                                   [this](const std::string& name) { return layout_.IsSeen(name); });
    active_ = next == order.end() ? QString() : QString::fromStdString(*next);
}

void TSplitter::Refresh() {
    for (auto frame = frames_.begin(); frame != frames_.end(); ++frame) {
        const std::string name = frame.key().toStdString();
        frame.value()->Show({.caption = Caption(frame.key()),
                             .isActive = active_ == frame.key(),
                             .isMaximised = layout_.Maximised() == name});
    }
}

}  // namespace tessel
