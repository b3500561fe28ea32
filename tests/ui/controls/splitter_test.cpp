#include "ui/controls/splitter.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QSplitter>
#include <QTest>

namespace tessel::test {
namespace {

const QStringList names{"Browser", "Diagram", "Properties", "Origin", "Errors", "Log"};
const QStringList hidden{"Diagram", "Origin", "Errors", "Log"};

PaneLayout Layout(std::string_view text = R"(1:v(0.75,h(0.5,A+"A",B+"B"),C-"C"))") {
    PaneLayout layout;
    for (const char* name : {"A", "B", "C"}) layout.Add(name);
    EXPECT_TRUE(layout.Import(text)) << text;
    return layout;
}

TEST(PaneLayoutTest, TextHoldsTheWholeArrangement) {
    PaneLayout layout = Layout();
    auto [left, right] = layout.Split(layout.Clear(), PaneDirection::SideBySide, 1.0 / 3, "", "C");
    layout.Split(*left, PaneDirection::Stacked, 0.1, "B", "A");
    layout.SetVisible("B", false);
    layout.SetMaximised("A");
    layout.At("A").caption = "a \"b\" \\ c\r\nテーブル";
    const std::string text = layout.Export();
    EXPECT_EQ(text, R"(1:h(0.3333333333333333,v(0.1,B-"B",A*"a \"b\" \\ c\r\nテーブル"),C-"C"))");
    const PaneLayout restored = Layout(text);
    EXPECT_EQ(restored.Export(), text);
    EXPECT_EQ(restored.At("A").caption, layout.At("A").caption);
}

TEST(PaneLayoutTest, RefusesEveryOtherText) {
    PaneLayout layout = Layout();
    const std::string good = layout.Export();
    std::vector<std::string> texts{"2" + good.substr(1),
                                   good + " ",
                                   R"(1:A+"")",
                                   R"(1:h(0.5,A+"",B+""))",
                                   R"(1:h(0.5,h(0.5,A+"",A+""),B+""))",
                                   R"(1:h(0.5,h(0.5,A+"",D+""),h(0.5,B+"",C+"")))",
                                   R"(1:h(0.5,h(0.5,A*"",B*""),C+""))",
                                   R"(1:h(0.5,h(0.5,A+"\x",B+""),C+""))",
                                   R"(1:x(0.5,h(0.5,A+"",B+""),C+""))"};
    for (const char* share : {"0", "1", "-0.5", "1e999", "1e-999", "nan", "inf", "", "0x1p-1", "0.5.5"})
        texts.push_back(std::string("1:h(") + share + R"(,h(0.5,A+"",B+""),C+""))");
    for (std::size_t length = 0; length < good.size(); ++length) texts.push_back(good.substr(0, length));
    std::string deep = "1:";
    for (int depth = 0; depth < 100000; ++depth) deep += "h(0.5,";
    texts.push_back(deep);
    for (const std::string& text : texts) {
        EXPECT_FALSE(layout.Import(text)) << text.substr(0, 100);
        EXPECT_EQ(layout.Export(), good);
    }
    // Whatever one changed character leads to, it is refused or understood, and never a crash.
    for (std::size_t place = 0; place < good.size(); ++place)
        for (int character = 0; character < 256; ++character) {
            std::string text = good;
            text[place] = static_cast<char>(character);
            if (layout.Import(text)) Layout(layout.Export());
        }
}

// A host of 1000 by 600 with the six panes, of which Browser and Properties are visible.
class SplitterTest : public testing::Test {
  protected:
    SplitterTest() {
        host.resize(1000, 600);
        host.SetRedraw(TSplitter::Redraw::Off);
        for (const QString& name : names) host.AddPane(name, controls[name] = new QLineEdit);
        const auto [top, bottom] = host.Split(host.Clear(), Qt::Vertical, 500);
        const auto [left, right] = host.Split(top, Qt::Horizontal, 500);
        host.Split(left, Qt::Vertical, 300, "Diagram", "Browser");
        host.Split(right, Qt::Vertical, 300, "Origin", "Properties");
        host.Split(bottom, Qt::Vertical, 50, "Log", "Errors");
        for (const QString& name : hidden) host.SetPaneVisible(name, false);
        host.SetRedraw(TSplitter::Redraw::On);
        QObject::connect(&host, &TSplitter::LayoutChanged, [this] { ++changes; });
    }

    void Open() {
        host.show();
        host.activateWindow();
        host.MakeActive("Browser");
        Wait([this] { return controls["Browser"]->hasFocus(); });
        changes = 0;
    }

    static void Wait(const std::function<bool()>& condition) {
        for (const QDeadlineTimer deadline(5000); !condition() && !deadline.hasExpired();)
            QApplication::processEvents();
        EXPECT_TRUE(condition());
    }

    QWidget& Pane(const QString& name) { return *host.findChild<QWidget*>("pane" + name); }
    PaneTitle& Title(const QString& name) { return *Pane(name).findChild<PaneTitle*>(); }

    static void Mouse(QWidget& widget, QEvent::Type type, QPoint at) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, {});
        QApplication::sendEvent(&widget, &event);
    }
    static void Drag(QWidget& widget, QPoint from, QPoint to) {
        Mouse(widget, QEvent::MouseButtonPress, from);
        Mouse(widget, QEvent::MouseMove, to);
    }
    void DragTitle(const QString& name, QPoint to) {
        Drag(Title(name), {5, 5}, Title(name).mapFrom(&host, to));
    }
    void Drop(const QString& name) { Mouse(Title(name), QEvent::MouseButtonRelease, {}); }
    QRect Preview() {
        const QWidget& preview = *host.findChild<QWidget*>("dockPreview");
        return preview.isVisible() ? preview.geometry() : QRect();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&host, key, modifiers); }
    // Chooses from the menu of the active pane.
    void Choose(const char* item) {
        Press(Qt::Key_Minus, Qt::AltModifier);
        auto* menu = host.findChild<QMenu*>("mnuPane");
        menu->findChild<QAction*>(item)->trigger();
        delete menu;
    }
    QString Active() {
        QStringList active;
        for (const QString& name : names)
            if (host.IsActive(name)) active.append(name);
        return active.join(' ');
    }

    text::Texts texts{std::string(TESSEL_SHARE) + "/texts", "en"};
    TSplitter host{texts};
    QHash<QString, QLineEdit*> controls;
    int changes = 0;
};

TEST_F(SplitterTest, HiddenPanesGiveTheirRoomAndGetItBack) {
    for (int round = 0; round < 2; ++round) {  // before the host is shown, and after
        EXPECT_EQ(host.PaneRectangle("Browser"), QRect(0, 0, 498, 600));
        EXPECT_EQ(host.PaneRectangle("Properties"), QRect(503, 0, 497, 600));
        EXPECT_TRUE(host.PaneRectangle("Log").isNull());
        for (const QString& name : names) host.SetPaneVisible(name, true);
        host.resize(1500, 1205);
        EXPECT_EQ(host.PaneRectangle("Diagram"), QRect(0, 0, 748, 597));
        EXPECT_EQ(host.PaneRectangle("Browser"), QRect(0, 602, 748, 398));
        EXPECT_EQ(host.PaneRectangle("Log"), QRect(0, 1005, 1500, 98));
        host.resize(1000, 600);
        for (const QString& name : hidden) host.SetPaneVisible(name, false);
        host.show();
        QApplication::processEvents();
    }
    EXPECT_EQ(changes, 16);  // one for each visibility
    host.SetPaneVisible("Browser", true);
    host.Rearrange();
    EXPECT_EQ(changes, 16);
}

TEST_F(SplitterTest, ImportsWhatWasExported) {
    Open();
    host.SetCaption("Errors", "3 \"<b>\"");
    EXPECT_TRUE(Title("Errors").findChild<QAbstractButton*>("cmdClose")->toolTip().contains("&lt;b&gt;"));
    Choose("mnuPaneMaximise");
    const QString stored = host.ExportLayout();
    Choose("mnuPaneMaximise");
    Choose("mnuPaneSwapWithProperties");
    host.SetCaption("Errors", "");
    const QString other = host.ExportLayout();
    changes = 0;
    EXPECT_FALSE(host.ImportLayout(stored.chopped(1)));
    EXPECT_EQ(host.ExportLayout(), other);
    EXPECT_TRUE(host.ImportLayout(stored));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(host.ExportLayout(), stored);
    EXPECT_EQ(host.Caption("Errors"), "3 \"<b>\"");
    EXPECT_EQ(host.PaneRectangle("Browser"), host.rect());
    EXPECT_TRUE(host.IsPaneVisible("Properties") && host.PaneRectangle("Properties").isNull());
    EXPECT_TRUE(controls["Browser"]->hasFocus());
}

TEST_F(SplitterTest, TheActivePaneHasTheFocus) {
    Open();
    Mouse(Title("Properties"), QEvent::MouseButtonPress, {5, 5});
    EXPECT_TRUE(controls["Properties"]->hasFocus());
    controls["Browser"]->setFocus();
    EXPECT_EQ(Active(), "Browser");
    Press(Qt::Key_F6);
    EXPECT_EQ(Active(), "Properties");
    Press(Qt::Key_F6);
    EXPECT_EQ(Active(), "Browser");
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(controls["Properties"]->hasFocus());
    host.MakeActive("Log");
    EXPECT_EQ(Active(), "Properties") << "a hidden pane";
    for (const QString& name : hidden) host.SetPaneVisible(name, true);
    const QStringList order{"Diagram", "Browser", "Origin", "Properties", "Log", "Errors"};
    for (int place = 0; place < 6; ++place) {
        const QString next = order[(place + 1) % 6];
        host.MakeActive(order[place]);
        host.SetPaneVisible(order[place], false);
        EXPECT_EQ(Active(), next);
        EXPECT_TRUE(controls[next]->hasFocus()) << next.toStdString();
        host.SetPaneVisible(order[place], true);
    }
    for (const char* name : {"Diagram", "Origin", "Properties"}) host.SetPaneVisible(name, false);
    host.MakeActive("Log");
    Choose("mnuPaneMaximise");
    host.MakeActive("Browser");
    EXPECT_FALSE(host.PaneRectangle("Log").isNull()) << "no pane is maximised any more";
    Choose("mnuPaneMaximise");
    host.SetPaneVisible("Browser", false);
    EXPECT_EQ(Active(), "Log");
    for (const char* name : {"Errors", "Log"}) host.SetPaneVisible(name, false);
    EXPECT_EQ(Active(), "");
}

TEST_F(SplitterTest, TitlesAreDraggedToTheirPlace) {
    struct Case {
        QPoint to;
        QRect preview;  // in the present arrangement
        QRect place;    // when the neighbours have taken the room that the pane left
    };
    Open();
    auto* inner = new QLineEdit(controls["Browser"]);
    inner->show();
    inner->setFocus();
    for (const Case& drag : {
             Case{{900, 300}, {751, 0, 249, 600}, {503, 0, 497, 600}},     // right of Properties
             Case{{600, 300}, {503, 0, 249, 600}, {0, 0, 498, 600}},       // left of it
             Case{{750, 100}, {503, 0, 497, 300}, {0, 0, 1000, 298}},      // above it
             Case{{750, 500}, {503, 300, 497, 300}, {0, 303, 1000, 297}},  // below it
             Case{{750, 300}, {503, 0, 497, 600}, {503, 0, 497, 600}},     // in its place
             Case{{995, 300}, {750, 0, 250, 600}, {751, 0, 249, 600}},     // right of all
             Case{{300, 3}, {0, 0, 1000, 150}, {0, 0, 1000, 149}},         // above all
             Case{{200, 300}, {}, {0, 0, 498, 600}},                       // over itself
         }) {
        const QString before = host.ExportLayout();
        changes = 0;
        DragTitle("Browser", drag.to);
        EXPECT_EQ(Preview(), drag.preview);
        QTest::keyClick(static_cast<QWidget*>(nullptr), Qt::Key_Escape);
        EXPECT_EQ(Preview(), QRect());
        Drop("Browser");
        EXPECT_EQ(host.ExportLayout(), before);
        EXPECT_EQ(changes, 0);

        DragTitle("Browser", drag.to);
        Drop("Browser");
        EXPECT_EQ(Preview(), QRect());
        EXPECT_EQ(host.PaneRectangle("Browser"), drag.place);
        EXPECT_EQ(changes, drag.preview.isNull() ? 0 : 1);
        EXPECT_TRUE(inner->hasFocus());
        ASSERT_TRUE(host.ImportLayout(before));
    }
}

TEST_F(SplitterTest, TheMenuDoesItAll) {
    Open();
    const QRect before = host.PaneRectangle("Browser");
    Choose("mnuPaneWider");
    EXPECT_EQ(host.PaneRectangle("Browser").width(), before.width() + 49);
    Choose("mnuPaneBelowProperties");
    EXPECT_EQ(host.PaneRectangle("Browser").topLeft(), QPoint(0, 303));
    Choose("mnuPaneRightOfWindow");
    EXPECT_EQ(host.PaneRectangle("Browser").right(), 999);
    Choose("mnuPaneSwapWithProperties");
    EXPECT_EQ(host.PaneRectangle("Browser").left(), 0);
    EXPECT_EQ(changes, 4);
    Mouse(Title("Properties"), QEvent::MouseButtonDblClick, {5, 5});
    EXPECT_EQ(host.PaneRectangle("Properties"), host.rect());
    EXPECT_EQ(Active(), "Properties");
}

TEST_F(SplitterTest, TheWindowMayDecideWhatClosingDoes) {
    Open();
    const auto close = [this](const QString& name) {
        Title(name).findChild<QAbstractButton*>("cmdClose")->click();
    };
    host.SetCloseHandler([](const QString& name) { return name == "Browser"; });
    close("Browser");
    close("Properties");
    EXPECT_TRUE(host.IsPaneVisible("Browser"));
    EXPECT_FALSE(host.IsPaneVisible("Properties"));
    EXPECT_EQ(changes, 1);
}

TEST_F(SplitterTest, BordersAreMoved) {
    Open();
    QWidget* border = nullptr;
    for (QSplitterHandle* handle : host.findChildren<QSplitterHandle*>())
        if (handle->isVisible()) border = handle;
    ASSERT_TRUE(border);
    Drag(*border, {2, 100}, {-198, 100});
    Mouse(*border, QEvent::MouseMove, {-98, 100});
    EXPECT_EQ(changes, 0) << "while the border moves";
    Mouse(*border, QEvent::MouseButtonRelease, {});
    EXPECT_EQ(changes, 1);
    const int width = host.PaneRectangle("Browser").width();
    EXPECT_LT(width, 400);
    Drag(*border, {2, 100}, {-2000, 100});
    Mouse(*border, QEvent::MouseButtonRelease, {});
    EXPECT_GT(host.PaneRectangle("Browser").width(), 50) << "no pane is lost";
    Mouse(*border, QEvent::MouseButtonPress, {2, 100});
    Mouse(*border, QEvent::MouseButtonRelease, {});
    EXPECT_EQ(changes, 2) << "not moved at all";
    Mouse(*border, QEvent::MouseButtonDblClick, {2, 100});
    EXPECT_EQ(host.PaneRectangle("Browser").width(), 498);
}

TEST_F(SplitterTest, ReleasedControlsLiveOn) {
    Open();
    host.ReleasePanes();
    host.SetPaneVisible("Log", true);
    host.resize(500, 500);
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(host.findChild<QWidget*>("paneBrowser"));
    for (const QString& name : names) {
        EXPECT_EQ(controls[name]->parentWidget(), &host);
        EXPECT_FALSE(controls[name]->isVisible());
    }
}

}  // namespace
}  // namespace tessel::test
