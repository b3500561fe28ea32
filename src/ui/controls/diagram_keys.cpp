#include <QKeyEvent>
#include <functional>
#include <map>

#include "platform/diagram/seek.h"
#include "ui/controls/diagram_view.h"

namespace tessel {

namespace {

using diagram::Towards;

const std::map<int, Towards> arrows{{Qt::Key_Left, Towards::Left},
                                    {Qt::Key_Right, Towards::Right},
                                    {Qt::Key_Up, Towards::Up},
                                    {Qt::Key_Down, Towards::Down}};

constexpr double zoomStep = 1.25;

}  // namespace

void DiagramView::keyPressEvent(QKeyEvent* event) {
    popupAtPointer_ = false;
    const int key = event->key();
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    event->accept();
    if (key == Qt::Key_Space && modifiers == Qt::NoModifier) {
        spaceIsDown_ = true;
        return SetPointer();
    }
    if (PressCommand(key, modifiers) || PressArrow(key, modifiers)) return;
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && modifiers == Qt::NoModifier && PressEnter())
        return;
    if (key == Qt::Key_Escape && PressEscape()) return;
    const bool isText = !event->text().isEmpty() && event->text()[0].isPrint() &&
                        !(modifiers & (Qt::ControlModifier | Qt::AltModifier));
    if (isText)
        emit Typed(event->text());
    else
        event->ignore();
}

void DiagramView::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) return;
    if (event->key() == Qt::Key_Space) {
        spaceIsDown_ = false;
        SetPointer();
    }
    emit KeyReleased(event->key(), event->modifiers());
}

bool DiagramView::PressCommand(int key, Qt::KeyboardModifiers modifiers) {
    using Command = std::function<void(DiagramView&)>;
    static const std::map<int, Command> commands{
        {Qt::CTRL | Qt::Key_Plus, [](auto& view) { view.ZoomBy(zoomStep); }},
        {Qt::CTRL | Qt::Key_Equal, [](auto& view) { view.ZoomBy(zoomStep); }},
        {Qt::CTRL | Qt::Key_Minus, [](auto& view) { view.ZoomBy(1 / zoomStep); }},
        {Qt::CTRL | Qt::Key_0, [](auto& view) { view.SetZoom(100); }},
        {Qt::CTRL | Qt::Key_9, [](auto& view) { view.ZoomToFit(); }},
        {Qt::CTRL | Qt::Key_A, [](auto& view) { view.SelectAll(); }},
        {Qt::CTRL | Qt::Key_F, [](auto& view) { emit view.FindWanted(); }},
        {Qt::CTRL | Qt::Key_K,
         [](auto& view) {
             if (!view.marks_.current.empty()) view.StartConnecting(view.marks_.current);
         }},
        {Qt::CTRL | Qt::Key_Z, [](auto& view) { emit view.UndoWanted(); }},
        {Qt::Key_F3, [](auto& view) { emit view.FindNextWanted(false); }},
        {Qt::SHIFT | Qt::Key_F3, [](auto& view) { emit view.FindNextWanted(true); }},
    };
    // On many keyboards a plus is typed with Shift.
    const auto without = key == Qt::Key_Plus ? modifiers & ~Qt::ShiftModifier : modifiers;
    const auto command = commands.find(key | int(without));
    if (command == commands.end()) return false;
    command->second(*this);
    return true;
}

bool DiagramView::PressArrow(int key, Qt::KeyboardModifiers modifiers) {
    if (!arrows.contains(key)) return false;
    if (modifiers == Qt::NoModifier)
        Walk(key);
    else if (modifiers == Qt::AltModifier)
        WalkLinks(key);
    else if (modifiers == Qt::ShiftModifier)
        Nudge(key);
    else
        return false;
    return true;
}

void DiagramView::Walk(int key) {
    const std::string& start = !connecting_            ? marks_.current
                               : marks_.target.empty() ? *connecting_
                                                       : marks_.target;
    const diagram::Box* box = Neighbour(content_, start, arrows.at(key));
    if (!box) return;
    if (connecting_) {
        Target(box->key);
    } else {
        marks_.selected.clear();
        marks_.currentLink.clear();
        SetCurrentBox(box->key);
    }
    BringIntoView(box->key);
    if (!connecting_) emit BoxClicked(box->key, Qt::LeftButton);
}

void DiagramView::WalkLinks(int key) {
    const bool isBack = key == Qt::Key_Left || key == Qt::Key_Up;
    const diagram::Link* link = LinkBeside(content_, marks_.current, marks_.currentLink,
                                           isBack ? diagram::Walk::Previous : diagram::Walk::Next);
    if (!link) return;
    SetCurrentLink(link->key);
    ensureVisible(ToPixels(diagram::Bounds(link->points)), 0, 0);
}

void DiagramView::Nudge(int key) {
    const Towards towards = arrows.at(key);
    const double step =
        towards == Towards::Left || towards == Towards::Up ? -diagram::gridPitch : diagram::gridPitch;
    const bool isAcross = towards == Towards::Left || towards == Towards::Right;
    const diagram::Content::Keys boxes(marks_.selected.begin(), marks_.selected.end());
    if (boxes.empty()) return;
    content_.Move(boxes, isAcross ? diagram::Point{step, 0} : diagram::Point{0, step},
                  diagram::Content::Lines::Undrawn);
    content_.Route();
    emit Arranged();
    BringIntoView(marks_.current);
}

void DiagramView::SelectAll() {
    for (const diagram::Box& box : content_.Drawing().boxes) marks_.selected.insert(box.key);
    viewport()->update();
}

bool DiagramView::PressEnter() {
    if (connecting_)
        FinishConnecting(true);
    else if (!marks_.currentLink.empty())
        emit LinkClicked(marks_.currentLink, Qt::LeftButton);
    else if (!marks_.current.empty())
        emit BoxDoubleClicked(marks_.current);
    else
        return false;
    return true;
}

bool DiagramView::PressEscape() {
    if (doing_ != Doing::Nothing)
        CancelMouse();
    else if (connecting_)
        FinishConnecting(false);
    else if (!marks_.currentLink.empty())
        SetCurrentLink({});
    else
        return false;
    return true;
}

}  // namespace tessel
