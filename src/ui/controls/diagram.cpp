#include "ui/controls/diagram.h"

#include <QAction>
#include <QIcon>
#include <QPainter>
#include <QToolBar>
#include <QVBoxLayout>

#include "platform/diagram/svg.h"
#include "tessel/error.h"
#include "ui/controls/diagram_accessible.h"
#include "ui/controls/diagram_search.h"
#include "ui/controls/diagram_view.h"

namespace tessel {

namespace {

constexpr int diagramText = 2606;
constexpr int connectingText = 2607;

QString Shown(const std::string& text) { return QString::fromStdString(text); }

template <typename Things>
std::vector<std::string> KeysOf(const Things& things) {
    std::vector<std::string> keys;
    for (const auto& thing : things) keys.push_back(thing.key);
    return keys;
}

}  // namespace

TDiagram::TDiagram(const text::Texts& texts, QWidget* parent)
    : QWidget(parent),
      toolbar_(new QToolBar),
      view_(new DiagramView(content_)),
      search_(new DiagramSearch(content_, texts, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(toolbar_);
    column->addWidget(search_);
    column->addWidget(view_, 1);
    setFocusProxy(view_);
    view_->setAccessibleName(Shown(texts.Text(diagramText)));
    view_->SetHint(Shown(texts.Text(connectingText)));
    OfferDiagramToScreenReaders(texts);
    ConnectView();
    ConnectSearch();
}

TDiagram::~TDiagram() = default;

void TDiagram::ConnectView() {
    connect(view_, &DiagramView::GotFocus, this, &TDiagram::GotFocus);
    connect(view_, &DiagramView::BoxClicked, this, &TDiagram::BoxClicked);
    connect(view_, &DiagramView::BoxDoubleClicked, this, &TDiagram::BoxDoubleClicked);
    connect(view_, &DiagramView::LinkClicked, this, &TDiagram::LinkClicked);
    connect(view_, &DiagramView::BoxesConnected, this, &TDiagram::BoxesConnected);
    connect(view_, &DiagramView::BackgroundClicked, this, &TDiagram::BackgroundClicked);
    connect(view_, &DiagramView::MousePressed, this, &TDiagram::MousePressed);
    connect(view_, &DiagramView::KeyReleased, this, &TDiagram::KeyReleased);
    connect(view_, &DiagramView::ZoomChanged, this, &TDiagram::ZoomChanged);
    connect(view_, &DiagramView::Arranged, this, &TDiagram::Renew);
    connect(view_, &DiagramView::UndoWanted, this, &TDiagram::UndoPlacement);
}

void TDiagram::ConnectSearch() {
    connect(view_, &DiagramView::FindWanted, this, [this] {
        SetQuickSearch(true);
        search_->Open();
    });
    connect(view_, &DiagramView::Typed, this, [this](const QString& text) {
        if (QuickSearch()) search_->Open(text);
    });
    connect(view_, &DiagramView::FindNextWanted, search_, &DiagramSearch::FindNext);
    connect(search_, &DiagramSearch::Found, view_, [this](const std::vector<std::string>& boxes) {
        view_->SetFound({boxes.begin(), boxes.end()});
    });
    connect(search_, &DiagramSearch::Chosen, this, [this](const std::string& box) {
        SetCurrentBox(box);
        BringIntoView(box);
        emit BoxClicked(box, Qt::LeftButton);
    });
    connect(search_, &DiagramSearch::CloseWanted, this, [this] { SetQuickSearch(false); });
}

void TDiagram::Renew() {
    isStale_ = suspensions_ > 0;
    if (isStale_) return;
    content_.Route();
    view_->Renew();
    search_->Refresh();
    emit Changed();
}

void TDiagram::SuspendDrawing() { ++suspensions_; }

void TDiagram::ResumeDrawing() {
    if (--suspensions_ > 0) return;
    if (isStale_) Renew();
    BringIntoView(std::exchange(awaited_, {}));
}

void TDiagram::Clear() {
    content_.Clear();
    Renew();
}

void TDiagram::AddBox(const std::string& key, const std::string& caption, QPointF place) {
    content_.AddBox(key, caption, {place.x(), place.y()});
    Renew();
}

void TDiagram::RemoveBox(const std::string& key) {
    content_.RemoveBox(key);
    Renew();
}

void TDiagram::SetBoxCaption(const std::string& key, const std::string& caption) {
    content_.SetCaption(key, caption);
    Renew();
}

void TDiagram::SetBoxWidth(const std::string& key, double units) {
    content_.SetWidth(key, units);
    Renew();
}

void TDiagram::SetBoxColour(const std::string& key, QRgb colour) {
    content_.SetColour(key, colour & RGB_MASK);
    Renew();
}

void TDiagram::SetBoxComment(const std::string& key, const std::string& comment) {
    content_.SetComment(key, comment);
    Renew();
}

bool TDiagram::HasBox(const std::string& key) const { return content_.FindBox(key) != nullptr; }
std::size_t TDiagram::BoxCount() const { return content_.Drawing().boxes.size(); }
std::vector<std::string> TDiagram::BoxKeys() const { return KeysOf(content_.Drawing().boxes); }

std::string TDiagram::BoxCaption(const std::string& key) const {
    const auto* box = content_.FindBox(key);
    return box ? box->caption : "";
}

void TDiagram::AddLink(const std::string& key, const std::string& from, const std::string& to,
                       const std::string& caption) {
    content_.AddLink({key, caption, from, to});
    Renew();
}

void TDiagram::RemoveLink(const std::string& key) {
    content_.RemoveLink(key);
    Renew();
}

void TDiagram::SetLinkCaption(const std::string& key, const std::string& caption) {
    content_.SetLinkCaption(key, caption);
    Renew();
}

bool TDiagram::HasLink(const std::string& key) const { return content_.FindLink(key) != nullptr; }
std::vector<std::string> TDiagram::LinkKeys() const { return KeysOf(content_.Drawing().links); }

std::string TDiagram::LinkFrom(const std::string& key) const {
    const auto* link = content_.FindLink(key);
    return link ? link->from : "";
}

QVariantList TDiagram::Boxes() const {
    QVariantList boxes;
    for (const diagram::Box& box : content_.Drawing().boxes)
        boxes.append(QVariantMap{{"key", Shown(box.key)},
                                 {"caption", Shown(box.caption)},
                                 {"comment", Shown(box.comment)},
                                 {"x", box.rect.x},
                                 {"y", box.rect.y},
                                 {"width", box.rect.width},
                                 {"height", box.rect.height}});
    return boxes;
}

QVariantList TDiagram::Links() const {
    QVariantList links;
    for (const diagram::Link& link : content_.Drawing().links)
        links.append(QVariantMap{{"key", Shown(link.key)},
                                 {"caption", Shown(link.caption)},
                                 {"from", Shown(link.from)},
                                 {"to", Shown(link.to)}});
    return links;
}

std::string TDiagram::CurrentBox() const { return view_->Marks().current; }
void TDiagram::SetCurrentBox(const std::string& key) { view_->SetCurrentBox(key); }
std::string TDiagram::CurrentLink() const { return view_->Marks().currentLink; }
void TDiagram::SetCurrentLink(const std::string& key) { view_->SetCurrentLink(key); }

void TDiagram::BringIntoView(const std::string& box) {
    if (suspensions_ > 0)
        awaited_ = box;
    else
        view_->BringIntoView(box);
}

int TDiagram::Zoom() const { return view_->Zoom(); }
void TDiagram::SetZoom(int percent) { view_->SetZoom(percent); }
void TDiagram::ZoomToFit() { view_->ZoomToFit(); }

bool TDiagram::QuickSearch() const { return !search_->isHidden(); }

void TDiagram::SetQuickSearch(bool on) {
    if (on == QuickSearch()) return;
    if (on) {
        search_->Open();
    } else {
        search_->hide();
        search_->Refresh();
        view_->setFocus();
    }
    emit QuickSearchChanged(on);
}

void TDiagram::SetBackground(const QColor& colour) { view_->SetBackground(colour); }

QAction* TDiagram::Button(const std::string& key) const {
    return toolbar_->findChild<QAction*>("dg" + Shown(key));
}

void TDiagram::AddButton(const std::string& key, const QIcon& picture, const std::string& tooltip) {
    QAction* action = Button(key);
    if (!action) {
        action = new QAction(toolbar_);
        toolbar_->addAction(action);
        action->setObjectName("dg" + Shown(key));
        connect(action, &QAction::triggered, this, [this, key] { emit ButtonClicked(key); });
    }
    action->setIcon(picture);
    action->setText(Shown(tooltip));
    action->setToolTip(Shown(tooltip));
}

void TDiagram::SetButtonEnabled(const std::string& key, bool enabled) {
    if (QAction* action = Button(key)) action->setEnabled(enabled);
}

bool TDiagram::LoadFile(const std::string& path) {
    const bool isLoaded = content_.Load(path);
    if (isLoaded && !std::exchange(hasLoaded_, true))
        if (const auto sight = content_.StoredSight()) view_->Restore(*sight);
    Renew();
    return isLoaded;
}

void TDiagram::SaveFile(const std::string& path) { content_.Save(path, view_->Sight()); }
bool TDiagram::IsArranged() const { return content_.IsArranged(); }

bool TDiagram::Place(const diagram::KeepOn& keepOn) {
    if (!content_.Place(keepOn)) return false;
    Renew();
    BringCurrentIntoView();
    return true;
}

bool TDiagram::CanUndoPlacement() const { return content_.CanUndoPlacement(); }

void TDiagram::UndoPlacement() {
    if (!CanUndoPlacement()) return;
    content_.UndoPlacement();
    Renew();
    BringCurrentIntoView();
}

// Or the first box, while none is current.
void TDiagram::BringCurrentIntoView() {
    if (BoxCount() > 0) BringIntoView(CurrentBox().empty() ? BoxKeys().front() : CurrentBox());
}

QRectF TDiagram::BoundingRect() const {
    const diagram::Rect bounds = Bounds(content_.Drawing());
    return {bounds.x, bounds.y, bounds.width, bounds.height};
}

void TDiagram::PaintPage(QPainter& painter, const QRectF& target, const QRectF& part) const {
    if (part.isEmpty()) return;
    const QRectF pixels = ToPixels({part.x(), part.y(), part.width(), part.height()});
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    painter.translate(target.topLeft());
    painter.scale(target.width() / pixels.width(), target.height() / pixels.height());
    painter.translate(-pixels.topLeft());
    PaintDiagram(painter, content_, pixels, DiagramColours(diagram::lightLook), {}, font());
    painter.restore();
}

QImage TDiagram::Picture(double pixelsPerUnit) const {
    constexpr double margin = diagram::margin;
    const QRectF part = BoundingRect().adjusted(-margin, -margin, margin, margin);
    QImage picture((part.size() * pixelsPerUnit).toSize(), QImage::Format_RGB32);
    picture.fill(QColor(diagram::lightLook.paper));
    QPainter painter(&picture);
    PaintPage(painter, QRectF(picture.rect()), part);
    return picture;
}

std::string TDiagram::SvgPicture(const std::string& title) const {
    return diagram::SvgFile(content_.Drawing(), title);
}

const diagram::Diagram& TDiagram::Drawing() const { return content_.Drawing(); }
QPoint TDiagram::PopupPlace() const { return view_->PopupPlace(); }
QRect TDiagram::SeenAt(const std::string& box) const { return view_->SeenAt(box); }
QPoint TDiagram::HandleOf(const std::string& box) const { return view_->HandleOf(box); }

}  // namespace tessel
