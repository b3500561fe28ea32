#include "ui/main/properties_pane.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "ui/main/window_test.h"

namespace tessel::test {

class PropertiesPaneTest : public WindowTest {
  protected:
    // ORDERS holds the columns No, Customer and Placed and the key PLACED_BY to CUSTOMER (No).
    PropertiesPaneTest() {
        Start();
        orders = AddTable("ORDERS");
        customer = AddTable("CUSTOMER");
        AddColumn(customer, "No");
        for (const char* name : {"No", "Customer", "Placed"}) AddColumn(orders, name);
        std::int32_t keyID = -1;
        EXPECT_TRUE(WorkspaceOf(state)->ForeignAdd(orders, customer, "PLACED_BY", keyID));
        state.Database().Execute(
            "insert into ForeignKeyColumns (KeyID, ColumnID, RefColumnID) values (1, 3, 1)");
        window = &Reopen();
        SelectTable(*window, 1);
    }

    ListView& List() { return Find<ListView>(*window, "lvProperties"); }
    QTabBar& Tabs() { return Find<QTabBar>(*window, "tsProperties"); }
    void ChooseTab(int tab) { QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(tab).center()); }
    QModelIndex Cell(int row, int column = 0) { return List().model()->index(row, column); }
    bool HasIcon(int row) {
        QImage icon = Cell(row).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
        const QImage shown = icon.copy();
        icon.fill(Qt::transparent);
        return shown != icon;
    }
    QPoint PlaceOf(int row) { return List().visualRect(Cell(row)).center(); }
    void Click(int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, modifiers, PlaceOf(row));
    }
    QLineEdit* Editor() { return List().viewport()->findChild<QLineEdit*>(); }
    void TypeName(const QString& name) {
        Until([&] { return Editor() != nullptr; });
        Editor()->setText(name);
        QTest::keyClick(Editor(), Qt::Key_Return);
        Until([&] { return Editor() == nullptr; });
    }
    // Selects the first column in each list of the dialog that will open, clicks the button, and confirms.
    static void Use(const char* name, const char* button) {
        WhenOpen(name, [button](QWidget& dialog) {
            for (ListView* list : dialog.findChildren<ListView*>())
                list->setCurrentIndex(list->model()->index(0, 0));
            Find<QAbstractButton>(dialog, button).click();
            Find<QPushButton>(dialog, "cmdOK").click();
        });
    }

    // The rows as the user sees them, cells parted by '|', selected ones with a '*' before them.
    Lines Rows() {
        Lines rows;
        for (int row = 0; row < List().model()->rowCount(); ++row) {
            QString line = List().selectionModel()->isSelected(Cell(row)) ? "*" : "";
            for (int column = 0; column < List().model()->columnCount(); ++column)
                line += (column > 0 ? "|" : "") + Cell(row, column).data().toString();
            rows.push_back(line.toStdString());
        }
        return rows;
    }
    Lines Stored(std::int32_t tabID) {
        Lines columns;
        for (auto row = state.Database().Select(
                 "select * from Columns where TabID = " + std::to_string(tabID) + " order by Position");
             row.Next();)
            columns.push_back(std::to_string(row.Integer("Position")) + row.Text("ColumnName"));
        return columns;
    }

    std::int32_t orders = -1;
    std::int32_t customer = -1;
    frmMain* window = nullptr;
};

TEST_F(PropertiesPaneTest, OnlyTheUsersChoiceOfATabFillsTheList) {
    const Lines columns{"No|INTEGER|", "Customer|INTEGER|", "Placed|INTEGER|"};
    EXPECT_EQ(Rows(), columns);
    Tabs().setCurrentIndex(2);
    EXPECT_EQ(List().model()->columnCount(), 6);
    EXPECT_EQ(List().model()->rowCount(), 3) << "rows of the columns under the headers of the keys";
    EXPECT_FALSE(Item(*window, "mnuPopupDelete").isEnabled());
    Press(Tabs(), Qt::Key_Right);
    EXPECT_EQ(Rows(), Lines{}) << "nothing refers to ORDERS";
    ChooseTab(2);
    EXPECT_EQ(Rows(), Lines{"PLACED_BY|Customer|CUSTOMER|No|Restrict|"});
    EXPECT_TRUE(HasIcon(0));
    ChooseTab(0);
    EXPECT_EQ(Rows(), columns);
    Browser(*window).setCurrentIndex({});
    EXPECT_EQ(Rows(), Lines{});
    EXPECT_FALSE(Item(*window, "mnuPopupNew").isEnabled());
}

TEST_F(PropertiesPaneTest, ANewColumnIsNamedInPlace) {
    Click(0);
    Press(List(), Qt::Key_Insert);
    EXPECT_EQ(Rows()[1], "*NewColumn|CHAR(1)|");
    TypeName("Status");
    Until([&] { return Rows()[1] == "*Status|CHAR(1)|"; });
    EXPECT_EQ(Stored(orders), (Lines{"1No", "2Status", "3Customer", "4Placed"}));
    EXPECT_EQ(frontend->log->activities.back().action, "Rename column NewColumn to Status");
    Click(3);
    List().selectionModel()->setCurrentIndex(Cell(3, 2), QItemSelectionModel::NoUpdate);
    Press(List(), Qt::Key_F2);
    Editor()->setText("no");
    QTest::keyClick(Editor(), Qt::Key_Return);
    Until([&] { return !questions->TakeAsked().empty(); });
    Until([&] { return Editor() && Editor()->text() == "Placed"; });
    QTest::keyClick(Editor(), Qt::Key_Insert);
    EXPECT_EQ(Stored(orders).size(), 4U) << "a label is being edited";
    QTest::keyClick(Editor(), Qt::Key_Escape);
    Press(List(), Qt::Key_C);
    EXPECT_EQ(Rows()[2], "*Customer|INTEGER|") << "typing finds a name";
    EXPECT_EQ(List().currentIndex().row(), 2);
}

TEST_F(PropertiesPaneTest, ATypedNameIsKeptWhenAnotherTableIsChosen) {
    Click(2);
    Press(List(), Qt::Key_F2);
    Until([&] { return Editor() != nullptr; });
    Editor()->setText("PlacedOnTheFirstDay");
    QTest::mouseClick(Browser(*window).viewport(), Qt::LeftButton, {},
                      Browser(*window).visualRect(Browser(*window).model()->index(0, 0)).center());
    Until([&] { return Stored(orders) == Lines{"1No", "2Customer", "3PlacedOnTheFirstDay"}; });
    EXPECT_EQ(Rows(), (Lines{"No|INTEGER|"})) << "the columns of the other table";
}

TEST_F(PropertiesPaneTest, ColumnsAreCutCopiedPastedAndDropped) {
    Click(1);
    Click(2, Qt::ControlModifier);
    Press(List(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_FALSE(Cell(0).data(Qt::ForegroundRole).isValid());
    EXPECT_TRUE(Cell(1).data(Qt::ForegroundRole).isValid());
    SelectTable(*window, 0);
    Press(List(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Rows(), (Lines{"No|INTEGER|", "*Customer|INTEGER|", "*Placed|INTEGER|"}));
    EXPECT_EQ(Stored(orders), Lines{"1No"});
    questions->Answers({host::Answer::OK});
    Press(List(), Qt::Key_Delete);
    EXPECT_EQ(questions->TakeAsked().front().text, "Drop column(s) Customer,\r\nPlaced?");
    EXPECT_EQ(Rows(), Lines{"No|INTEGER|"});
    Press(List(), Qt::Key_A, Qt::ControlModifier);
    Press(List(), Qt::Key_C, Qt::ControlModifier);
    Press(List(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Rows(), (Lines{"No|INTEGER|", "*No1|INTEGER|"}));
}

TEST_F(PropertiesPaneTest, AColumnIsDraggedToItsPlace) {
    auto& label = Find<QLabel>(*window, "lblDragEvent");
    auto& mark = Find<QWidget>(*window, "dropTarget");
    const auto drag = [&](QPoint to) {
        QTest::mousePress(List().viewport(), Qt::LeftButton, {}, PlaceOf(2));
        QTest::mouseMove(List().viewport(), to);
    };
    const auto drop = [&](QPoint to) { QTest::mouseRelease(List().viewport(), Qt::LeftButton, {}, to); };
    drag(PlaceOf(2) + QPoint(2, 1));
    EXPECT_FALSE(label.isVisible()) << "45 twips are no drag";
    QTest::mouseMove(List().viewport(), PlaceOf(0));
    EXPECT_TRUE(label.isVisible());
    EXPECT_EQ(label.text(), "Placed");
    EXPECT_EQ(mark.height(), List().visualRect(Cell(0)).height());
    EXPECT_EQ(mark.mapTo(&List(), QPoint()).y() - List().viewport()->y(), List().visualRect(Cell(0)).y());
    QTest::keyClick(&List(), Qt::Key_Escape);
    EXPECT_FALSE(label.isVisible());
    drop(PlaceOf(0));
    EXPECT_EQ(Stored(orders), (Lines{"1No", "2Customer", "3Placed"})) << "cancelled";
    const QPoint nowhere(5, List().viewport()->height() - 2);
    drag(nowhere);
    drop(nowhere);
    EXPECT_EQ(Stored(orders), (Lines{"1No", "2Customer", "3Placed"}));
    drag(PlaceOf(0));
    drop(PlaceOf(0));
    EXPECT_FALSE(label.isVisible());
    EXPECT_EQ(Stored(orders), (Lines{"1Placed", "2No", "3Customer"}));
    EXPECT_EQ(Rows(), (Lines{"*Placed|INTEGER|", "No|INTEGER|", "Customer|INTEGER|"}));
    for (int times = 0; times < 3; ++times) Press(List(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Stored(orders), (Lines{"1No", "2Customer", "3Placed"}));
    Press(List(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Rows(), (Lines{"No|INTEGER|", "*Placed|INTEGER|", "Customer|INTEGER|"}));
}

TEST_F(PropertiesPaneTest, ALongListScrollsUnderTheDrag) {
    for (int column = 0; column < 200; ++column) AddColumn(orders, "C" + std::to_string(column));
    SelectTable(*window, 0);
    SelectTable(*window, 1);
    QTest::mousePress(List().viewport(), Qt::LeftButton, {}, PlaceOf(0));
    const QPoint below(20, List().viewport()->height() + 300);
    QTest::mouseMove(List().viewport(), below);
    Until([&] { return List().indexAt(QPoint(5, 5)).row() > 20; });
    QTest::mouseRelease(List().viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(Stored(orders).front(), "1No") << "dropped on no row";
}

TEST_F(PropertiesPaneTest, TheContextMenuFollowsTheSelection) {
    const auto states = [&] {
        std::string text;
        for (const char* item : {"New", "Delete", "Rename", "Locate", "Properties"})
            text += Item(*window, ("mnuPopup" + std::string(item)).c_str()).isEnabled() ? item[0] : '-';
        return text;
    };
    EXPECT_EQ(states(), "N----");
    Click(1);
    EXPECT_EQ(states(), "NDR-P");
    EXPECT_EQ(window->CVRL(), "text:Customer.txt");
    Click(0, Qt::ControlModifier);
    EXPECT_EQ(states(), "ND---");
    ChooseTab(2);
    Click(0);
    EXPECT_EQ(states(), "NDRLP");
    auto& menu = Find<QMenu>(*window, "mnuPopup");
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, PlaceOf(0));
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.defaultAction(), &Item(*window, "mnuPopupProperties"));
    menu.close();
    Choose(*window, "mnuPopupLocateItem");
    EXPECT_EQ(Listed(*window), (Lines{"*CUSTOMER|", "ORDERS|"}));
    EXPECT_EQ(Tabs().currentIndex(), 3);
    EXPECT_EQ(Rows(), Lines{"*PLACED_BY|Customer|ORDERS|No|Restrict|"});
    EXPECT_EQ(states(), "-DRLP");
    Choose(*window, "mnuPopupLocateItem");
    EXPECT_EQ(Listed(*window), (Lines{"CUSTOMER|", "*ORDERS|"}));
    EXPECT_EQ(Tabs().currentIndex(), 2);
}

TEST_F(PropertiesPaneTest, ADoubleClickOpensTheProperties) {
    Use("frmColumn", "chkAllowNulls");
    Click(2);
    Click(2);  // begins an edit, which the double click puts an end to
    EXPECT_FALSE(HasIcon(2));
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, PlaceOf(2));
    Until([&] { return HasIcon(2); });
    EXPECT_EQ(Rows()[2], "*Placed|INTEGER|");
    EXPECT_FALSE(List().IsEditing());
}

TEST_F(PropertiesPaneTest, IndexesAndKeysAreMadeAndEdited) {
    ChooseTab(1);
    questions->Answers({TypedText{"IX"}});
    Press(List(), Qt::Key_Insert);
    Use("frmIndex", "cmdAdd_0");
    Press(List(), Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(Rows(), Lines{"*IX|No|"});
    ChooseTab(2);
    WhenOpen("frmCreateKey", [](QWidget& dialog) {
        QTest::keyClicks(&Find<QLineEdit>(dialog, "txtKeyName"), "FK");
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Press(List(), Qt::Key_Insert);
    EXPECT_EQ(Rows(), (Lines{"*FK||CUSTOMER||Restrict|", "PLACED_BY|Customer|CUSTOMER|No|Restrict|"}));
    Use("frmForeignKey", "cmdLink");
    Press(List(), Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(Rows()[0], "*FK|No|CUSTOMER|No|Restrict|");
}

}  // namespace tessel::test
