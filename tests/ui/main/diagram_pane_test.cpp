#include "ui/main/diagram_pane.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include "ui/controls/diagram_view.h"
#include "ui/main/window_test.h"

namespace tessel::test {

class DiagramPaneTest : public WindowTest {
  protected:
    // CITY (1) refers to COUNTRY (2) by the key IN_COUNTRY; STREET (3) stands alone.
    DiagramPaneTest() {
        window = &Start();
        for (const char* name : {"CITY", "COUNTRY", "STREET"}) AddTable(name);
        std::int32_t keyID = -1;
        EXPECT_TRUE(WorkspaceOf(state)->ForeignAdd(1, 2, "IN_COUNTRY", keyID));
        Choose(*window, "mnuViewDiagram");
        window = &Reopen();
    }
    TDiagram& Diagram() { return Find<TDiagram>(*window, "Diagram"); }
    DiagramView& Sheet() { return Find<DiagramView>(*window, "DiagramView"); }
    QPoint Middle(const char* box) { return Diagram().SeenAt(box).center(); }
    void Click(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(Sheet().viewport(), button, {}, place);
    }
    void Drag(QPoint from, QPoint to) {
        QTest::mousePress(Sheet().viewport(), Qt::LeftButton, {}, from);
        QTest::mouseMove(Sheet().viewport(), to);
        QTest::mouseRelease(Sheet().viewport(), Qt::LeftButton, {}, to);
    }
    // The menu that the user sees, which is then closed.
    std::string PoppedUp() {
        auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        return menu && menu->close() ? menu->objectName().toStdString() : "";
    }
    // Caption, comment, height, key, width, x and y of each box; caption, from, key and to of each link.
    Lines Drawn(const char* things = "boxes") {
        Lines lines;
        for (const QVariant& thing : Diagram().property(things).toList())
            lines.push_back(QVariant(thing.toMap().values()).toStringList().join('|').toStdString());
        return lines;
    }
    // The table, tab and row that the user is led to.
    std::string Shown() {
        const auto rows = Find<QTreeView>(*window, "lvProperties").selectionModel()->selectedRows();
        const QString tab = QString::number(Find<QTabBar>(*window, "tsProperties").currentIndex());
        const QString table = Browser(*window).currentIndex().data().toString();
        return (table + '/' + tab + '/' + rows.value(0).data().toString()).toStdString();
    }
    // Whether the commands that need a box can be used: 'y' or 'n' for each.
    std::string Usable() {
        std::string usable;
        for (const char* name : {"mnuDiagramAutoPlace", "mnuGeneralAutoPlace", "mnuDiagramCopyClipboard",
                                 "mnuDiagramSaveAs", "mnuDiagramPrint", "dgPlace", "dgPrint"})
            usable += Item(*window, name).isEnabled() ? 'y' : 'n';
        return usable;
    }
    const std::string schemaFolder = folder / "Projects/Demo/DBSCHEMA";
    const Lines inAColumn{"CITY||8|t1|8|0|10", "COUNTRY||8|t2|14|0|20", "STREET||8|t3|12|0|30"};
    frmMain* window = nullptr;
};

TEST_F(DiagramPaneTest, FollowsTheSchema) {
    const auto workspace = WorkspaceOf(state);
    EXPECT_EQ(Drawn(), inAColumn);
    EXPECT_EQ(Drawn("links"), Lines{"IN_COUNTRY|t1|k1|t2"});
    ASSERT_TRUE(workspace->TableUpdate(1, "METROPOLIS", Missing{}, "big\r\ncity", Missing{}));
    AddTable("X");
    EXPECT_EQ(Drawn(),
              (Lines{"METROPOLIS|big  city|8|t1|20|0|10", inAColumn[1], inAColumn[2], "X||8|t4|2|0|50"}));
    ASSERT_TRUE(workspace->TableUpdate(1, "TOWN", Missing{}, Missing{}, Missing{}));
    ASSERT_TRUE(workspace->ForeignUpdate(1, "WITHIN", Missing{}, Missing{}));
    ASSERT_TRUE(workspace->TableDrop(3));
    EXPECT_EQ(Drawn(), (Lines{"TOWN|big  city|8|t1|8|0|10", inAColumn[1], "X||8|t4|2|0|50"}));
    workspace->RefreshBrowser();
    EXPECT_EQ(Drawn("links"), Lines{"WITHIN|t1|k1|t2"}) << "the file has it under its old name";
    ASSERT_TRUE(workspace->ForeignDrop(1));
    EXPECT_EQ(Drawn("links"), Lines{});
}

TEST_F(DiagramPaneTest, TheArrangementIsKeptInTheFile) {
    Drag(Middle("t2"), Middle("t2") + QPoint(160, 80));
    const Lines moved{inAColumn[0], "COUNTRY||8|t2|14|40|40", inAColumn[2]};
    WorkspaceOf(state)->RefreshBrowser();
    EXPECT_EQ(Drawn(), moved) << "not saved yet";
    window = &Reopen();
    EXPECT_EQ(Drawn(), moved);
    state.Database().Execute("delete from Tables where TabID = 3");
    state.Database().Execute("delete from ForeignKeys");
    WorkspaceOf(state)->RefreshBrowser();
    EXPECT_EQ(Drawn(), Lines(moved.begin(), moved.begin() + 2)) << "the file holds a box of no table";
    EXPECT_EQ(Drawn("links"), Lines{}) << "and a link of no key";
    std::filesystem::remove(schemaFolder + "/Demo.dgm.xml");
    WorkspaceOf(state)->RefreshBrowser();
    EXPECT_EQ(Drawn(), Lines(inAColumn.begin(), inAColumn.begin() + 2));
}

TEST_F(DiagramPaneTest, BeginsWithTheFirstBoxWhicheverTableIsSelected) {
    ASSERT_TRUE(WorkspaceOf(state)->TableUpdate(1, "TOWN", Missing{}, Missing{}, Missing{}));
    Diagram().SetZoom(20);
    Drag(Middle("t2"), Middle("t2") + QPoint(160, 160));
    Diagram().SetZoom(100);
    window = &Reopen();
    EXPECT_EQ(Diagram().CurrentBox(), "t2");
    const QRect seen = Sheet().viewport()->rect();
    EXPECT_TRUE(seen.contains(Diagram().SeenAt("t1")) && !seen.intersects(Diagram().SeenAt("t2")));
}

TEST_F(DiagramPaneTest, ASchemaThatTheImportFillsIsPlaced) {
    EXPECT_TRUE(window->close());
    std::filesystem::copy_file(schemaFolder + "/Demo.mdb", folder / "DBSchema.mdb");
    std::filesystem::remove_all(schemaFolder);
    for (const char* name : {"CITY", "COUNTRY", "STREET"})
        frontend->repository->Add("TABLE", name)->attributes["Modified"] = "2026-01-31T10:00:00";
    state.window.reset();
    window = &Start();
    const Lines placed = Drawn();
    Choose(*window, "mnuGeneralAutoPlace");
    EXPECT_EQ(Drawn(), placed);
    Drag(Middle("t1"), Middle("t1") + QPoint(80, 0));
    const Lines moved = Drawn();
    EXPECT_NE(moved, placed);
    window = &Reopen();
    EXPECT_EQ(Drawn(), moved) << "it was not empty any more";
}

TEST_F(DiagramPaneTest, ConnectingTwoBoxesMakesAKey) {
    const auto connect = [&](const char* button) {
        WhenOpen("frmCreateKey", [=](QWidget& dialog) {
            EXPECT_EQ(Find<QComboBox>(dialog, "cmbTables").currentText(), "COUNTRY");
            QTest::keyClicks(dialog.focusWidget(), "CROSSES");
            Find<QPushButton>(dialog, button).click();
        });
        Click(Middle("t3"));
        Press(Sheet(), Qt::Key_K, Qt::ControlModifier);
        for (const int key : {Qt::Key_Up, Qt::Key_Return}) Press(Sheet(), key);
    };
    connect("cmdCancel");
    EXPECT_FALSE(state.Database().Select("select * from ForeignKeys where KeyID > 1").Next());
    connect("cmdOK");
    EXPECT_EQ(Shown(), "STREET/2/CROSSES");
    EXPECT_EQ(Drawn("links"), (Lines{"IN_COUNTRY|t1|k1|t2", "CROSSES|t3|k2|t2"}));
}

TEST_F(DiagramPaneTest, TheMouseAndTheKeysActOnWhatTheyMeet) {
    const QPoint ground = Sheet().viewport()->rect().bottomRight() - QPoint(5, 5);
    Click(Middle("t3"));
    EXPECT_EQ(Shown(), "STREET/0/");
    EXPECT_TRUE(Panes(*window).IsActive("Diagram"));
    const auto& line = Diagram().Drawing().links[0].points;
    Click(Sheet().mapFromScene((ToPixels(line[0]) + ToPixels(line[1])) / 2));
    EXPECT_EQ(Shown(), "CITY/2/IN_COUNTRY");
    SelectTable(*window, 2);
    EXPECT_EQ(Diagram().CurrentBox(), "t3") << "the browser leads too";
    Click(Middle("t2"), Qt::RightButton);
    EXPECT_EQ(Find<QMenu>(*window, "mnuStructure").defaultAction(), &Item(*window, "mnuStructureProperties"));
    EXPECT_EQ(PoppedUp(), "mnuStructure");
    EXPECT_EQ(Shown(), "COUNTRY/2/");
    Click(ground);
    EXPECT_EQ(PoppedUp(), "");
    Click(ground, Qt::RightButton);
    EXPECT_EQ(PoppedUp(), "mnuGeneral");
    Press(Sheet(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(PoppedUp(), "mnuGeneral");
    bool isOpened = false;
    WhenOpen("frmTable", [&](QWidget& dialog) { isOpened = dialog.close(); });
    QTest::mouseDClick(Sheet().viewport(), Qt::LeftButton, {}, Middle("t1"));
    EXPECT_TRUE(isOpened);
    questions->Answers({host::Answer::OK});
    Press(Sheet(), Qt::Key_Delete);
    EXPECT_EQ(Drawn(), Lines(inAColumn.begin() + 1, inAColumn.end()));
}

TEST_F(DiagramPaneTest, CommandsFollowTheBoxesAndThePane) {
    Choose(*window, "mnuViewDiagram");
    AddTable("LATE");
    EXPECT_EQ(Usable(), "nnnnnnn") << "the pane is hidden";
    Choose(*window, "mnuViewDiagram");
    EXPECT_EQ(Usable(), "yyyyyyy");
    for (const std::int32_t tabID : {1, 2, 3, 4}) ASSERT_TRUE(WorkspaceOf(state)->TableDrop(tabID));
    EXPECT_EQ(Usable(), "nnnnnnn") << "no box";
    emit Diagram().ButtonClicked("Print");
    const AskedQuestion told = questions->TakeAsked().at(0);
    EXPECT_EQ(told.text, "Diagram is empty.");
    EXPECT_EQ(told.icon, host::Icon::Information);
}

TEST_F(DiagramPaneTest, TheMenuAndTheToolbarActAlike) {
    WhenOpen("saveDialog", [](QWidget& dialog) { dynamic_cast<QDialog&>(dialog).accept(); });
    Choose(*window, "mnuDiagramSaveAs");
    EXPECT_TRUE(std::filesystem::exists(folder / "Output/Database Schema (Demo).png"));
    const char* commands[][3] = {{"mnuDiagramZoom", "mnuDiagramAutoPlace", "mnuDiagramPrint"},
                                 {"dgZoom100", "dgPlace", "dgPrint"}};
    for (const auto& [zoom, place, print] : commands) {
        Diagram().setProperty("zoom", 250);
        Choose(*window, zoom);
        EXPECT_EQ(Diagram().property("zoom"), 100) << zoom;
        Choose(*window, place);
        EXPECT_NE(Drawn(), inAColumn) << place;
        Press(Sheet(), Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Drawn(), inAColumn) << place;
        bool isShown = false;
        WhenOpen("frmPrintPreview", [&](QWidget& preview) { isShown = preview.close(); });
        Choose(*window, print);
        EXPECT_TRUE(isShown) << print;
    }
}

TEST_F(DiagramPaneTest, TheMarkOfQuickSearchFollowsIt) {
    auto& line = Find<QLineEdit>(Diagram(), "txtFind");
    const QAction& mark = Item(*window, "mnuDiagramSearch");
    for (const auto& [command, isOn] :
         {std::pair{"mnuDiagramSearch", true}, {"dgSearch", false}, {"dgSearch", true}}) {
        Choose(*window, command);
        EXPECT_TRUE(mark.isChecked() == isOn && line.isVisible() == isOn) << command;
    }
    QTest::keyClicks(&line, "stre");
    EXPECT_EQ(Shown(), "STREET/0/");
    Press(line, Qt::Key_Escape);
    EXPECT_FALSE(mark.isChecked() || line.isVisible());
}

}  // namespace tessel::test
