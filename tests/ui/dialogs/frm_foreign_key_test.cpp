#include "ui/dialogs/frm_foreign_key.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>

#include "ui/dialogs/dialog_test.h"

namespace tessel::test {

namespace {

// Both tables have thirty more columns.
class FrmForeignKeyTest : public DialogTest {
  protected:
    FrmForeignKeyTest() {
        for (const int table : {1, 2})
            for (int i = 1; i <= 30; ++i) AddColumn(table, "More" + std::to_string(i));
    }

    bool Edit(const std::function<void()>& act) {
        auto rules = ForeignKeyDialog::Open(state, 1, "Restrict", "");
        return Use(
            "frmForeignKey", [&] { return frmForeignKey::Edit(state, nullptr, *rules); }, act);
    }

    // The first three rows.
    [[nodiscard]] std::string Shown(const char* list) const {
        const std::string listed = Listed(list);
        return listed.substr(0, listed.find(", More1"));
    }
    [[nodiscard]] int MiddleOf(const char* list, int row) const {
        auto& view = In<QTreeView>(list);
        return view.viewport()->y() + view.visualRect(view.model()->index(row, 0)).center().y();
    }
    // Whether a line is drawn there, `x` counted from the left or, below 0, from the right end of the gap.
    [[nodiscard]] bool IsDrawn(int x, int y) const {
        const QImage image = In("lnLink").grab().toImage();
        const auto background = image.pixel(image.width() / 2, image.height() - 1);
        for (int near = y - 2; near <= y + 2; ++near)
            if (image.pixel(x < 0 ? image.width() + x : x, near) != background) return true;
        return false;
    }
};

TEST_F(FrmForeignKeyTest, LinksColumns) {
    EXPECT_TRUE(Edit([this] {
        EXPECT_EQ(Dialog().windowTitle(), "Foreign Key - K");
        EXPECT_EQ(In<QLabel>("lblTable_0").text() + In<QLabel>("lblTable_1").text(), "ChildParent");
        EXPECT_EQ(Shown("lvColumns_0") + " | " + Shown("lvColumns_1"), "A!, *B!, C | X!, Y!, Z!");
        EXPECT_EQ(In<QGroupBox>("frDetails_0").title() + In<QLabel>("lblType_0").text(), "BREAL");
        EXPECT_EQ(Enabled("cmdLink cmdUnlink"), "cmdUnlink");
        EXPECT_EQ(In<QComboBox>("cmbIndex").currentText(), "U1");

        ClickRow("lvColumns_0", 2);
        ClickRow("lvColumns_1", 1);
        EXPECT_EQ(In<QGroupBox>("frDetails_1").title() + In<QLabel>("lblType_1").text(), "YREAL");
        EXPECT_EQ(Enabled("cmdLink cmdUnlink"), "cmdLink");
        Click("cmdLink");
        EXPECT_EQ(Shown("lvColumns_0"), "A!, B, *C!~");
        auto& list = In<QTreeView>("lvColumns_0");
        const auto red = [&] { return list.model()->index(2, 0).data(Qt::ForegroundRole).value<QColor>(); };
        EXPECT_EQ(red(), QColor(255, 0, 0));
        list.setPalette(QPalette(QColor(30, 30, 30)));
        EXPECT_GT(red().lightness(), QColor(255, 0, 0).lightness());
        ClickRow("lvColumns_0", 0, true);
        EXPECT_EQ(Shown("lvColumns_1"), "*X!, Y!, Z!");
        ClickRow("lvColumns_1", 1, true);
        EXPECT_EQ(Shown("lvColumns_0"), "A!, B, *C!~");
        ClickRow("lvColumns_1", 0, true);
        EXPECT_EQ(Shown("lvColumns_0"), "*A!, B, C!~");
        Press("lvColumns_0", Qt::Key_Delete);
        Type("lvColumns_0", "b");
        Press("lvColumns_1", Qt::Key_Insert);
        EXPECT_EQ(Shown("lvColumns_0"), "A, *B!~, C!~");
        Press("lvColumns_0", Qt::Key_Down);
        Press("lvColumns_0", Qt::Key_Return);
        EXPECT_EQ(Shown("lvColumns_1"), "X!, *Y!, Z!");

        Press("cmbIndex", Qt::Key_Down);
        const auto& model = *In<QTreeView>("lvColumns_1").model();
        const auto picture = [&](int row) {
            return model.index(row, 0).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
        };
        EXPECT_EQ(picture(0), picture(1));
        EXPECT_NE(picture(1), picture(2));
        Type("cmbOnDelete", "c");
        Click("cmdOK");
    }));
    EXPECT_EQ(Rows("select ColumnID, RefColumnID from ForeignKeyColumns"), (Strings{"2|4", "3|5"}));
    EXPECT_EQ(Rows("select HowDelete from ForeignKeys"), Strings{"C"});
}

TEST_F(FrmForeignKeyTest, DrawsLinesThatFollowTheLists) {
    Db().Execute("delete from ForeignKeyColumns where ColumnID=1");
    EXPECT_FALSE(Edit([this] {
        const int top = MiddleOf("lvColumns_0", 0);
        const int linked = MiddleOf("lvColumns_0", 1);
        const int next = MiddleOf("lvColumns_1", 2);
        EXPECT_TRUE(IsDrawn(1, linked) && IsDrawn(-2, linked));
        EXPECT_FALSE(IsDrawn(1, top) || IsDrawn(-2, next));
        ClickRow("lvColumns_1", 2);
        Click("cmdLink");
        EXPECT_TRUE(IsDrawn(1, linked) && IsDrawn(-2, next));
        EXPECT_FALSE(IsDrawn(-2, linked));
        In<QTreeView>("lvColumns_1").verticalScrollBar()->setValue(2);
        EXPECT_TRUE(IsDrawn(1, linked) && IsDrawn(-2, top));
        In<QTreeView>("lvColumns_0").verticalScrollBar()->setValue(2);
        EXPECT_TRUE(IsDrawn(-2, top));
        for (int y = 2; y < In("lnLink").height() - 2; ++y) EXPECT_FALSE(IsDrawn(1, y)) << y;
        auto& list = In<QTreeView>("lvColumns_1");
        list.move(list.x(), list.y() + 20);
        EXPECT_TRUE(QTest::qWaitFor([&] { return IsDrawn(-2, top + 20); })) << "the list has moved";
    }));
}

}  // namespace

}  // namespace tessel::test
