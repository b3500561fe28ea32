#include "ui/main/properties_pane.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "ui/main/window_test.h"

namespace tessel::test {

using Lines = std::vector<std::string>;

class PropertiesPaneTest : public WindowTest {
  protected:
    // ORDERS holds the columns No, Customer and Placed and the key PLACED_BY to CUSTOMER (No).
    PropertiesPaneTest() {
        Start();
        orders = AddTable("ORDERS");
        customer = AddTable("CUSTOMER");
        AddColumn(customer, "No");
        last_ = -1;
        for (const char* name : {"No", "Customer", "Placed"}) AddColumn(orders, name);
        std::int32_t keyID = -1;
        EXPECT_TRUE(WorkspaceOf(state)->ForeignAdd(orders, customer, "PLACED_BY", keyID));
        state.Database().Execute(
            "insert into ForeignKeyColumns (KeyID, ColumnID, RefColumnID) values (1, 3, 1)");
        window = &Reopen();
        SelectTable(1);
    }

    void AddColumn(std::int32_t tabID, std::string name) {
        std::int32_t columnID = -1;
        EXPECT_TRUE(WorkspaceOf(state)->ColumnAdd(tabID, name, 4, 0, 0, true, Null{}, Null{}, DateTime{},
                                                  Null{}, "text:" + name + ".txt", last_, columnID));
        last_ = columnID;
    }
    void SelectTable(int row) { Browser(*window).setCurrentIndex(Browser(*window).model()->index(row, 0)); }

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

    std::shared_ptr<StrictQuestions> questions = std::static_pointer_cast<StrictQuestions>(state.questions);
    std::int32_t orders = -1;
    std::int32_t customer = -1;
    frmMain* window = nullptr;

  private:
    std::int32_t last_ = -1;
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
    QStyleOptionViewItem plain;
    plain.initFrom(&List());
    for (int column = 0; column < List().model()->columnCount(); ++column)
        EXPECT_GE(List().columnWidth(column), QStyledItemDelegate().sizeHint(plain, Cell(1, column)).width());
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
    Press(List(), Qt::Key_A, Qt::ControlModifier);
    Press(List(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(Cell(0).data(Qt::ForegroundRole).isValid());
    Click(1);
    Click(2, Qt::ControlModifier);
    Press(List(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_FALSE(Cell(0).data(Qt::ForegroundRole).isValid());
    EXPECT_TRUE(Cell(1).data(Qt::ForegroundRole).isValid());
    SelectTable(0);
    Press(List(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Rows(), (Lines{"No|INTEGER|", "*Customer|INTEGER|", "*Placed|INTEGER|"}));
    EXPECT_EQ(Stored(orders), Lines{"1No"});
    questions->Answers({host::Answer::Cancel, host::Answer::OK});
    for (const std::size_t left : {3U, 1U}) {
        Press(List(), Qt::Key_Delete);
        EXPECT_EQ(Stored(customer).size(), left);
        EXPECT_EQ(questions->TakeAsked().front().text, "Drop column(s) Customer,\r\nPlaced?");
    }
    EXPECT_EQ(Rows(), Lines{"No|INTEGER|"});
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
    for (const QPoint nowhere : {PlaceOf(2) + QPoint(60, 0), QPoint(5, List().viewport()->height() - 2)}) {
        drag(nowhere);
        drop(nowhere);
        EXPECT_EQ(Stored(orders), (Lines{"1No", "2Customer", "3Placed"}));
    }
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
    SelectTable(0);
    SelectTable(1);
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
    EXPECT_EQ(Item(*window, "mnuPopupLocateItem").text(), "(not available)");
    ChooseTab(2);
    EXPECT_EQ(states(), "N----");
    Click(0);
    EXPECT_EQ(states(), "NDRLP");
    auto& menu = Find<QMenu>(*window, "mnuPopup");
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, PlaceOf(0));
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.defaultAction(), &Item(*window, "mnuPopupProperties"));
    menu.close();
    EXPECT_EQ(Item(*window, "mnuPopupLocateItem").text(), "Referenced Table");
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
    WhenOpen("frmColumn", [](QWidget& dialog) {
        Find<QCheckBox>(dialog, "chkAllowNulls").click();
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Click(2);
    Click(2);  // begins an edit, which the double click puts an end to
    EXPECT_FALSE(HasIcon(2));
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, PlaceOf(2));
    Until([&] { return HasIcon(2); });
    EXPECT_EQ(Rows()[2], "*Placed|INTEGER|");
    EXPECT_FALSE(List().IsEditing());
}

}  // namespace tessel::test
