#include "ui/controls/origin_viewer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTest>
#include <QTextBlock>

#include "support/schema_test.h"

namespace tessel::test {

class OriginViewerTest : public SchemaTest {
  protected:
    OriginViewerTest() {
        viewer.resize(400, 300);
        viewer.SetHost(state);
        viewer.show();
    }
    template <typename Widget>
    Widget& In(const char* name) {
        return *viewer.findChild<Widget*>(name);
    }
    QPlainTextEdit& Source() { return In<QPlainTextEdit>("txtSource"); }

    CVRLView viewer;
};

TEST_F(OriginViewerTest, ShowsTheLineThatIsMeant) {
    std::string text;
    for (int line = 1; line <= 500; ++line) text += "line " + std::to_string(line) + " <b>&amp;\n";
    Write(folder / "long.txt", text);
    EXPECT_EQ(viewer.Title(), "(none)");
    viewer.SetCVRL("text:long.txt:321");
    EXPECT_EQ(viewer.CVRL(), "text:long.txt:321");
    EXPECT_EQ(viewer.Title(), "long.txt");
    EXPECT_EQ(Source().textCursor().block().text(), "line 321 <b>&amp;");
    EXPECT_TRUE(Source().viewport()->rect().contains(Source().cursorRect()));
    EXPECT_EQ(Source().extraSelections().size(), 2);
    viewer.SetCVRL("text:long.txt:9999");
    EXPECT_EQ(Source().extraSelections().size(), 1);
    EXPECT_FALSE(In<QLabel>("lblNotice").isVisible());

    QTest::keyClick(&Source(), Qt::Key_F, Qt::ControlModifier);
    auto& find = In<QLineEdit>("txtFind");
    QTest::keyClicks(&find, "LINE 45");
    for (int times = 0; times < 2; ++times) QTest::keyClick(&find, Qt::Key_Return);
    EXPECT_EQ(Source().textCursor().blockNumber(), 449);
    for (int times = 0; times < 2; ++times) QTest::keyClick(&find, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Source().textCursor().blockNumber(), 458);
}

TEST_F(OriginViewerTest, ShowsAttributesAndForgetsThem) {
    const auto loan = frontend->repository->Add("TABLE", "<b>LOAN</b>");
    viewer.SetCVRL("obj:" + loan->Identifier());
    const auto& attributes = In<QTableWidget>("tblAttributes");
    ASSERT_EQ(attributes.rowCount(), 3);
    EXPECT_EQ(attributes.item(2, 0)->text() + '=' + attributes.item(2, 1)->text(), "Name=<b>LOAN</b>");
    EXPECT_EQ(In<QLabel>("lblNotice").text(), "No source text is known.");
    viewer.Release();
    EXPECT_FALSE(attributes.isVisible() || In<QLabel>("lblNotice").isVisible());
    EXPECT_EQ(viewer.CVRL() + viewer.Title(), "");
}

}  // namespace tessel::test
