#include "ui/controls/diagram.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include "support/temporary_folder.h"
#include "ui/controls/diagram_view.h"

namespace tessel::test {
namespace {

class DiagramTest : public testing::Test {
  protected:
    DiagramTest() {
        using D = TDiagram;
        const auto note = [this](const std::string& what) { events.push_back(what); };
        const auto name = [](int number) { return std::to_string(number); };
        QObject::connect(&diagram, &D::BoxClicked,
                         [=](const auto& key, auto button) { note("box " + key + " " + name(button)); });
        QObject::connect(&diagram, &D::BoxDoubleClicked, [=](const auto& key) { note("double " + key); });
        QObject::connect(&diagram, &D::LinkClicked,
                         [=](const auto& key, auto button) { note("link " + key + " " + name(button)); });
        QObject::connect(&diagram, &D::BoxesConnected,
                         [=](const auto& from, const auto& to) { note("connected " + from + " " + to); });
        QObject::connect(&diagram, &D::BackgroundClicked,
                         [=](auto button) { note("ground " + name(button)); });
        QObject::connect(&diagram, &D::KeyReleased, [=](int key, auto modifiers) {
            note("key " + name(key) + " " + name(int(modifiers)));
        });
        QObject::connect(&diagram, &D::MousePressed, [=](auto button) { note("pressed " + name(button)); });
        QObject::connect(&diagram, &D::QuickSearchChanged,
                         [=](bool on) { note(on ? "search" : "no search"); });
        QObject::connect(&diagram, &D::Changed, [this] { ++changes; });
        diagram.resize(800, 600);
        diagram.SuspendDrawing();
        diagram.AddBox("t1", "COUNTRY", {0, 10});
        diagram.AddBox("t2", "CITY", {60, 10});
        diagram.AddBox("t3", "STREET", {60, 50});
        diagram.SetBoxComment("t3", "along a city");
        diagram.AddLink("k1", "t2", "t1", "FK_CITY");
        diagram.AddLink("k2", "t3", "t2", "FK_STREET");
        diagram.ResumeDrawing();
        diagram.show();
        QApplication::processEvents();
    }

    void Mouse(QEvent::Type type, QPoint place, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) {
        const bool isMove = type == QEvent::MouseMove;
        const bool isUp = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, place, view.viewport()->mapToGlobal(place), isMove ? Qt::NoButton : button,
                          isUp ? Qt::NoButton : button, modifiers);
        QApplication::sendEvent(view.viewport(), &event);
    }
    void Click(QPoint place, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {}) {
        Mouse(QEvent::MouseButtonPress, place, button, modifiers);
        Mouse(QEvent::MouseButtonRelease, place, button, modifiers);
    }
    void Drag(QPoint from, QPoint to) {
        Mouse(QEvent::MouseButtonPress, from);
        Mouse(QEvent::MouseMove, (from + to) / 2);
        Mouse(QEvent::MouseMove, to);
        Mouse(QEvent::MouseButtonRelease, to);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&view, key, modifiers); }

    [[nodiscard]] QPoint Middle(const std::string& box) const { return diagram.SeenAt(box).center(); }
    [[nodiscard]] QPoint OnLink(std::size_t index) const {
        const auto& points = diagram.Drawing().links[index].points;
        return view.mapFromScene((ToPixels(points[0]) + ToPixels(points[1])) / 2);
    }
    [[nodiscard]] QPoint OnGround() const { return diagram.SeenAt("t1").bottomLeft() + QPoint(20, 100); }
    // What happened since the last call, but for keys that were released.
    std::vector<std::string> Events() {
        std::erase_if(events, [](const std::string& event) { return event.starts_with("key "); });
        return std::exchange(events, {});
    }

    TemporaryFolder folder;
    text::Texts texts{std::string(TESSEL_SHARE) + "/texts", "en"};
    TDiagram diagram{texts};
    DiagramView& view = *diagram.findChild<DiagramView*>("DiagramView");
    std::vector<std::string> events;
    int changes = 0;
};

using Strings = std::vector<std::string>;

TEST_F(DiagramTest, AToolTipTakesNothingForMarkup) {
    diagram.SetBoxCaption("t1", "<b>A</b>");
    const QPoint place = Middle("t1");
    QHelpEvent event(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
    QApplication::sendEvent(view.viewport(), &event);
    EXPECT_EQ(QToolTip::text(), "<p>&lt;b&gt;A&lt;/b&gt;</p>");
}

TEST_F(DiagramTest, TheMouseSelectsAndSaysWhatItHit) {
    Click(Middle("t2"));
    EXPECT_EQ(Events(), (Strings{"pressed 1", "box t2 1"}));
    EXPECT_EQ(diagram.CurrentBox(), "t2");
    Click(Middle("t1"), Qt::RightButton);
    EXPECT_EQ(Events(), (Strings{"pressed 2", "box t1 2"}));
    EXPECT_EQ(diagram.PopupPlace(), view.viewport()->mapToGlobal(Middle("t1")));
    Click(OnLink(1));
    EXPECT_EQ(Events(), (Strings{"pressed 1", "link k2 1"}));
    diagram.SetCurrentBox("t3");
    EXPECT_EQ(diagram.CurrentLink(), "k2") << "it starts at that box";
    diagram.SetCurrentBox("t1");
    EXPECT_EQ(diagram.CurrentLink(), "");
    Click(OnGround(), Qt::RightButton);
    EXPECT_EQ(Events(), (Strings{"pressed 2", "ground 2"}));
    EXPECT_EQ(diagram.CurrentBox(), "t1");
    Mouse(QEvent::MouseButtonDblClick, Middle("t2"));
    EXPECT_EQ(Events(), (Strings{"pressed 1", "double t2"}));
    Drag(diagram.SeenAt("t2").topLeft() - QPoint(10, 10), diagram.SeenAt("t3").bottomRight() + QPoint(40, 9));
    EXPECT_EQ(view.Marks().selected, (std::set<std::string>{"t2", "t3"})) << "by a frame";
}

TEST_F(DiagramTest, BoxesAreDraggedWithTheirLinks) {
    const auto before = diagram.Drawing();
    EXPECT_EQ(std::exchange(changes, 0), 1) << "drawn once when it was filled";
    Drag(Middle("t3"), Middle("t3") + QPoint(83, 41));
    const auto& after = diagram.Drawing();
    EXPECT_EQ(after.boxes[2].rect.x, 80) << "in steps of the grid";
    EXPECT_EQ(after.boxes[2].rect.y, 60);
    EXPECT_EQ(after.links[0].points, before.links[0].points);
    EXPECT_NE(after.links[1].points, before.links[1].points);
    EXPECT_EQ(Events(), (Strings{"pressed 1", "box t3 1"}));
    EXPECT_TRUE(diagram.IsArranged());
    EXPECT_EQ(changes, 1);

    Mouse(QEvent::MouseButtonPress, Middle("t1"));
    Mouse(QEvent::MouseMove, Middle("t1") + QPoint(50, 50));
    Press(Qt::Key_Escape);
    EXPECT_EQ(after.boxes[0].rect, before.boxes[0].rect);
    diagram.SetCurrentBox("t1");
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(after.boxes[0].rect.y, before.boxes[0].rect.y + 2);
}

TEST_F(DiagramTest, BoxesAreConnectedByHandleOrKeys) {
    Mouse(QEvent::MouseMove, Middle("t1"));
    Drag(diagram.HandleOf("t1"), Middle("t3"));
    EXPECT_EQ(Events(), (Strings{"pressed 1", "connected t1 t3"}));
    EXPECT_EQ(diagram.LinkKeys().size(), 2U);
    Mouse(QEvent::MouseMove, Middle("t1"));
    Drag(diagram.HandleOf("t1"), OnGround());
    EXPECT_EQ(Events(), (Strings{"pressed 1"}));

    diagram.SetCurrentBox("t1");
    Press(Qt::Key_K, Qt::ControlModifier);
    for (const auto key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}) Press(key);
    EXPECT_EQ(Events(), (Strings{"connected t1 t3"}));
    EXPECT_EQ(diagram.CurrentBox(), "t1");
    Press(Qt::Key_K, Qt::ControlModifier);
    for (const auto key : {Qt::Key_Right, Qt::Key_Escape, Qt::Key_Return}) Press(key);
    EXPECT_EQ(Events(), (Strings{"double t1"}));
}

TEST_F(DiagramTest, KeysReachEverything) {
    for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down}) Press(key);
    EXPECT_EQ(Events(), (Strings{"box t1 1", "box t2 1", "box t3 1"}));
    EXPECT_EQ(diagram.PopupPlace(), view.viewport()->mapToGlobal(Middle("t3")));
    Press(Qt::Key_Up);
    Press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(diagram.CurrentLink(), "k1");
    Press(Qt::Key_Right, Qt::AltModifier);
    Press(Qt::Key_Enter);
    EXPECT_EQ(Events(), (Strings{"box t2 1", "link k2 1"}));
    Press(Qt::Key_F10, Qt::ShiftModifier);
    Press(Qt::Key_Delete);
    ASSERT_GE(events.size(), 2U);
    EXPECT_EQ(events.back(), "key " + std::to_string(Qt::Key_Delete) + " 0");

    QAccessibleInterface* all = QAccessible::queryAccessibleInterface(&view);
    ASSERT_EQ(all->childCount(), 5);
    EXPECT_EQ(all->child(2)->text(QAccessible::Name), "STREET");
    EXPECT_EQ(all->child(2)->text(QAccessible::Description), "along a city");
    EXPECT_EQ(all->child(4)->text(QAccessible::Name), "Foreign key FK_STREET from STREET to CITY");
    EXPECT_EQ(all->child(0)->rect().center(), view.viewport()->mapToGlobal(Middle("t1")));
}

TEST_F(DiagramTest, ZoomsAroundWhatIsSeen) {
    diagram.SetCurrentBox("t1");
    const QPoint pointer = Middle("t1");
    for (const int delta : {120, 120, -120}) {
        QWheelEvent event(pointer, view.viewport()->mapToGlobal(pointer), {}, {0, delta}, {},
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &event);
        EXPECT_LE((Middle("t1") - pointer).manhattanLength(), 4) << "the place at the pointer stays";
    }
    EXPECT_EQ(diagram.Zoom(), 115);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(diagram.Zoom(), 92);
    Press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(diagram.Zoom(), 100);
    diagram.SetZoom(5000);
    EXPECT_EQ(diagram.Zoom(), 1000);
    diagram.AddBox("t4", "FAR", {900, 600});
    Press(Qt::Key_9, Qt::ControlModifier);
    for (const auto* box : {"t1", "t4"})
        EXPECT_TRUE(view.viewport()->rect().contains(diagram.SeenAt(box))) << box;
    diagram.SetZoom(100);
    diagram.BringIntoView("t4");
    EXPECT_TRUE(view.viewport()->rect().contains(diagram.SeenAt("t4")));
    EXPECT_FALSE(view.viewport()->rect().intersects(diagram.SeenAt("t1")));
}

TEST_F(DiagramTest, IsDrawnOnceWhenTheLastSuspensionEnds) {
    changes = 0;
    {
        const SuspendedDrawing outer(diagram);
        {
            const SuspendedDrawing inner(diagram);
            diagram.AddBox("t4", "FAR", {900, 600});
            diagram.BringIntoView("t4");
        }
        diagram.RemoveBox("t3");
        EXPECT_EQ(changes, 0);
    }
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(view.viewport()->rect().contains(diagram.SeenAt("t4")));
    { const SuspendedDrawing unchanged(diagram); }
    EXPECT_EQ(changes, 1);
}

TEST_F(DiagramTest, QuickSearchWalksWhatItFinds) {
    Press(Qt::Key_C);
    EXPECT_EQ(Events(), Strings{}) << "not while it is off";
    diagram.SetQuickSearch(true);
    view.setFocus();
    Press(Qt::Key_C);
    auto& field = *diagram.findChild<QLineEdit*>("txtFind");
    EXPECT_EQ(field.text(), "c");
    EXPECT_EQ(view.Marks().found.size(), 3U) << "one of them by its comment";
    QTest::keyClick(&field, Qt::Key_I);
    EXPECT_EQ(view.Marks().found, (std::set<std::string>{"t2", "t3"}));
    QTest::keyClick(&field, Qt::Key_Return);
    Press(Qt::Key_F3);
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Events(), (Strings{"search", "box t1 1", "box t2 1", "box t3 1", "box t2 1", "box t3 1"}));
    diagram.RemoveBox("t3");
    EXPECT_EQ(view.Marks().found, (std::set<std::string>{"t2"}));
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_FALSE(diagram.property("quickSearch").toBool());
    EXPECT_TRUE(view.Marks().found.empty());
}

TEST_F(DiagramTest, TheFileBringsBackWhatWasSeen) {
    const std::string file = folder / "a.dgm.xml";
    diagram.SetBoxColour("t1", qRgb(1, 2, 3));
    diagram.SetZoom(150);
    diagram.BringIntoView("t3");
    const QRect seen = diagram.SeenAt("t3");
    diagram.SaveFile(file);

    TDiagram other(texts);
    other.resize(diagram.size());
    other.show();
    EXPECT_FALSE(other.LoadFile(folder / "none.dgm.xml"));
    EXPECT_TRUE(other.LoadFile(file));
    EXPECT_EQ(other.Boxes(), diagram.Boxes());
    EXPECT_EQ(other.Links(), diagram.Links());
    EXPECT_EQ(other.Zoom(), 150);
    EXPECT_LE((other.SeenAt("t3").center() - seen.center()).manhattanLength(), 4);
    other.SetZoom(100);
    other.Clear();
    EXPECT_TRUE(other.LoadFile(file));
    EXPECT_EQ(other.Zoom(), 100) << "only the first load does";
}

TEST_F(DiagramTest, PicturesAreLightAndShowAll) {
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    diagram.setPalette(dark);
    diagram.SetCurrentBox("t1");
    const QImage picture = diagram.Picture(4);
    const auto at = [&](double x, double y) {
        const QPointF place = (QPointF(x, y) - diagram.BoundingRect().topLeft() + QPointF(3, 3)) * 4;
        return picture.pixelColor(place.toPoint());
    };
    EXPECT_EQ(at(30, 60), QColor(Qt::white));
    EXPECT_GT(at(1, 11).lightness(), 220);
    EXPECT_LT(at(0, 14).lightness(), 200) << "the border";
    const auto& line = diagram.Drawing().links[0].points;
    EXPECT_LT(at((line[0].x + line[1].x) / 2, line[0].y).lightness(), 200);
    EXPECT_NE(diagram.SvgPicture("Shop").find(">STREET<"), std::string::npos);
}

}  // namespace
}  // namespace tessel::test
