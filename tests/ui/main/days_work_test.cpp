#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include "ui/main/qt_questions.h"
#include "ui/main/window_test.h"

namespace tessel::test {

using Lines = std::vector<std::string>;

// What a person does in a day, with nothing but the window.
class DaysWorkTest : public WindowTest {
  protected:
    DaysWorkTest() {
        state.questions = std::make_shared<QtQuestions>(state);
        window = &Start();
    }

    ListView& List(const char* name) { return Find<ListView>(*window, name); }
    ListView& Properties() { return List("lvProperties"); }
    void ChooseTab(int tab) {
        auto& tabs = Find<QTabBar>(*window, "tsProperties");
        while (tabs.currentIndex() != tab)
            Press(tabs, tabs.currentIndex() < tab ? Qt::Key_Right : Qt::Key_Left);
    }
    static void SelectIn(QAbstractItemView& list, const QString& name) {
        const auto found =
            list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        list.setCurrentIndex(found[0]);
    }
    static void OK(const QWidget& dialog) { Find<QPushButton>(dialog, "cmdOK").click(); }

    static void AnswerName(const QString& name) {
        WhenOpen("inputDialog", [name](QWidget& dialog) {
            Find<QLineEdit>(dialog, "txtInput").setText(name);
            dynamic_cast<QDialog&>(dialog).accept();
        });
    }
    void NewTable(const QString& name) {
        AnswerName(name);
        Choose(*window, "mnuStructureNew");
    }
    void EditProperties(const char* dialog, const QString& row, const std::function<void(QWidget&)>& act) {
        SelectIn(Properties(), row);
        WhenOpen(dialog, [act](QWidget& shown) {
            act(shown);
            OK(shown);
        });
        Press(Properties(), Qt::Key_Return, Qt::AltModifier);
    }
    // An INTEGER that is not null.
    void NewColumn(const QString& name) {
        ChooseTab(0);
        Press(Properties(), Qt::Key_Insert);
        auto* editor = Properties().viewport()->findChild<QLineEdit*>();
        ASSERT_TRUE(editor);
        editor->selectAll();
        QTest::keyClicks(editor, name);
        QTest::keyClick(editor, Qt::Key_Return);
        Until([&] { return Properties().currentIndex().data() == name; });
        Change(name, "INTEGER", false);
    }
    void Change(const QString& column, const QString& type, bool allowNulls) {
        ChooseTab(0);
        EditProperties("frmColumn", column, [&](QWidget& dialog) {
            QTest::keyClicks(&Find<QComboBox>(dialog, "cmbType"), type);
            auto& nulls = Find<QCheckBox>(dialog, "chkAllowNulls");
            if (nulls.isChecked() != allowNulls) nulls.click();
        });
    }
    void NewIndex(const QString& name) {
        ChooseTab(1);
        AnswerName(name);
        Press(Properties(), Qt::Key_Insert);
    }
    void NewUniqueIndex(const QString& name, const QString& column, const char* also = nullptr) {
        NewIndex(name);
        EditProperties("frmIndex", name, [&](QWidget& dialog) {
            SelectIn(Find<ListView>(dialog, "lvColumns_0"), column);
            Find<QAbstractButton>(dialog, "cmdAdd_0").click();
            Find<QCheckBox>(dialog, "chkUnique").click();
            if (also) Find<QCheckBox>(dialog, also).click();
        });
    }
    void NewKey(const QString& name, const QString& table) {
        ChooseTab(2);
        WhenOpen("frmCreateKey", [=](QWidget& dialog) {
            QTest::keyClicks(&Find<QLineEdit>(dialog, "txtKeyName"), name);
            QTest::keyClicks(&Find<QComboBox>(dialog, "cmbTables"), table);
            OK(dialog);
        });
        Press(Properties(), Qt::Key_Insert);
    }
    void Link(const QString& key, const QString& column, const QString& refColumn) {
        EditProperties("frmForeignKey", key, [&](QWidget& dialog) {
            SelectIn(Find<ListView>(dialog, "lvColumns_0"), column);
            SelectIn(Find<ListView>(dialog, "lvColumns_1"), refColumn);
            Find<QPushButton>(dialog, "cmdLink").click();
        });
    }
    Lines Errors() {
        Choose(*window, "mnuVerifyAll");
        Lines errors;
        const QAbstractItemModel& model = *List("lvErrors").model();
        for (int row = 0; row < model.rowCount(); ++row)
            errors.push_back(
                (model.index(row, 0).data().toString() + ": " + model.index(row, 1).data().toString())
                    .toStdString());
        return errors;
    }
    // Where a double click on an error leads: table, tab and row.
    std::string LeadsTo(int error) {
        ListView& list = List("lvErrors");
        const QModelIndex row = list.model()->index(error, 0);
        list.scrollTo(row);
        const QPoint place = list.visualRect(row).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
        auto& tabs = Find<QTabBar>(*window, "tsProperties");
        const auto rows = Properties().selectionModel()->selectedRows();
        EXPECT_EQ(window->focusWidget(), &Properties());
        return (Browser(*window).currentIndex().data().toString() + " " + tabs.tabText(tabs.currentIndex()) +
                " " + (rows.isEmpty() ? "" : rows[0].data().toString()))
            .toStdString();
    }

    frmMain* window = nullptr;
};

TEST_F(DaysWorkTest, ASchemaIsMadeVerifiedAndBroken) {
    NewTable("CUSTOMER");
    NewColumn("CustomerNo");
    NewColumn("TaxNo");
    NewUniqueIndex("PK_CUSTOMER", "CustomerNo", "chkPrimary");
    NewUniqueIndex("AK_CUSTOMER", "TaxNo");
    NewTable("ORDERS");
    NewColumn("OrderNo");
    NewColumn("PlacedBy");
    NewKey("FK_CUSTOMER", "CUSTOMER");
    Link("FK_CUSTOMER", "PlacedBy", "CustomerNo");
    EXPECT_EQ(Errors(), Lines{});

    Change("PlacedBy", "SMALLINT", false);
    NewIndex("IX_ORDERS");
    NewTable("EMPTY");
    SelectIn(Browser(*window), "CUSTOMER");
    Change("TaxNo", "INTEGER", true);
    EXPECT_EQ(Errors(), (Lines{"CUSTOMER: Unique index AK_CUSTOMER: Column TaxNo allows nulls",
                               "ORDERS: Index IX_ORDERS has no columns",
                               "ORDERS: Foreign key FK_CUSTOMER: Column type mismatch",
                               "EMPTY: Table has no columns"}));
    SelectIn(Browser(*window), "EMPTY");
    EXPECT_EQ(LeadsTo(0), "CUSTOMER Columns TaxNo");
    EXPECT_EQ(LeadsTo(1), "ORDERS Columns ");
    EXPECT_EQ(LeadsTo(2), "ORDERS Keys FK_CUSTOMER");
    EXPECT_EQ(LeadsTo(3), "EMPTY Columns ");
}

}  // namespace tessel::test
