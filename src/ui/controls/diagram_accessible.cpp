#include "ui/controls/diagram_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <utility>
#include <vector>

#include "ui/controls/diagram_view.h"

namespace tessel {

namespace {

constexpr int linkText = 2608;  // %1 from %2 to %3

const text::Texts* texts = nullptr;

// A box, or a link, by its index; the boxes come first.
class PartInterface : public QAccessibleInterface {
  public:
    PartInterface(DiagramView& view, std::size_t index) : view_(view), index_(index) {}

    bool isValid() const override { return Box() || Link(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&view_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return Name();
        if (kind == QAccessible::Description && Box()) return QString::fromStdString(Box()->comment);
        return {};
    }

    QRect rect() const override {
        const QRectF bounds =
            Box()    ? QRectF(view_.SeenAt(Box()->key))
            : Link() ? QRectF(view_.mapFromScene(ToPixels(Bounds(Link()->points))).boundingRect())
                     : QRectF();
        return bounds.toRect().translated(view_.viewport()->mapToGlobal(QPoint()));
    }

    QAccessible::State state() const override {
        const DiagramMarks& marks = view_.Marks();
        const bool isCurrent = Box() ? marks.currentLink.empty() && Box()->key == marks.current
                                     : Link() && Link()->key == marks.currentLink;
        QAccessible::State state;
        state.focusable = state.selectable = true;
        state.focused = isCurrent && view_.hasFocus();
        state.selected = Box() ? marks.selected.contains(Box()->key) : isCurrent;
        return state;
    }

  private:
    [[nodiscard]] const diagram::Diagram& Drawing() const { return view_.Content().Drawing(); }
    [[nodiscard]] const diagram::Box* Box() const {
        return index_ < Drawing().boxes.size() ? &Drawing().boxes[index_] : nullptr;
    }
    [[nodiscard]] const diagram::Link* Link() const {
        const std::size_t first = Drawing().boxes.size();
        return index_ >= first && index_ - first < Drawing().links.size() ? &Drawing().links[index_ - first]
                                                                          : nullptr;
    }

    [[nodiscard]] QString Name() const {
        if (Box()) return QString::fromStdString(Box()->caption);
        if (!Link()) return {};
        const auto caption = [this](const std::string& key) {
            const auto* box = view_.Content().FindBox(key);
            return box ? box->caption : key;
        };
        return QString::fromStdString(
            texts->Format(linkText, {Link()->caption, caption(Link()->from), caption(Link()->to)}));
    }

    DiagramView& view_;
    std::size_t index_;
};

class DiagramInterface : public QAccessibleWidget {
  public:
    explicit DiagramInterface(DiagramView& view) : QAccessibleWidget(&view, QAccessible::List), view_(view) {}
    ~DiagramInterface() override {
        for (const QAccessible::Id part : parts_) QAccessible::deleteAccessibleInterface(part);
    }

    int childCount() const override {
        const auto& drawing = view_.Content().Drawing();
        return int(drawing.boxes.size() + drawing.links.size());
    }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) return nullptr;
        while (parts_.size() <= std::size_t(index))
            parts_.push_back(
                QAccessible::registerAccessibleInterface(new PartInterface(view_, parts_.size())));
        return QAccessible::accessibleInterface(parts_[std::size_t(index)]);
    }

    int indexOfChild(const QAccessibleInterface* part) const override {
        for (std::size_t i = 0; i < parts_.size(); ++i)
            if (QAccessible::accessibleInterface(parts_[i]) == part) return int(i);
        return -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < childCount(); ++i)
            if (child(i)->rect().contains(x, y)) return child(i);
        return nullptr;
    }

    QAccessibleInterface* focusChild() const override {
        for (int i = childCount(); i-- > 0;)
            if (child(i)->state().focused) return child(i);
        return nullptr;
    }

  private:
    DiagramView& view_;
    mutable std::vector<QAccessible::Id> parts_;
};

QAccessibleInterface* Offer(const QString&, QObject* object) {
    auto* view = qobject_cast<DiagramView*>(object);
    return view ? new DiagramInterface(*view) : nullptr;
}

}  // namespace

void OfferDiagramToScreenReaders(const text::Texts& language) {
    if (!std::exchange(texts, &language)) QAccessible::installFactory(Offer);
}

void TellScreenReaders(DiagramView& view) {
    if (!QAccessible::isActive()) return;
    const auto& [boxes, links] = view.Content().Drawing();
    const DiagramMarks& marks = view.Marks();
    const auto link = std::ranges::find(links, marks.currentLink, &diagram::Link::key);
    const auto box = std::ranges::find(boxes, marks.current, &diagram::Box::key);
    const auto index =
        link != links.end() ? int(boxes.size()) + int(link - links.begin()) : int(box - boxes.begin());
    if (link == links.end() && box == boxes.end()) return;
    QAccessibleEvent event(&view, QAccessible::Focus);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
}

}  // namespace tessel
