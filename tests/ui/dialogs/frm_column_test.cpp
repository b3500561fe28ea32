#include "ui/dialogs/frm_column.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "ui/dialogs/dialog_test.h"
#include "ui/dialogs/qt_conversions.h"

namespace tessel::test {

namespace {

// The column A is made a DECIMAL(5,2) that admits Null.
class FrmColumnTest : public DialogTest {
  protected:
    FrmColumnTest() {
        Db().Execute("update Columns set TypeID=3, Precision=5, Scale=2, IsNullable=1 where ColumnID=1");
    }

    bool Edit(const std::function<void()>& act, const std::string& iconKey = "key") {
        auto rules = ColumnDialog::Open(state, locale_, 1, iconKey);
        const bool edited = Use(
            "frmColumn", [&] { return frmColumn::Edit(state, nullptr, *rules); }, act);
        if (edited) shown_ = rules->IconKey() + " " + rules->TypeText();
        return edited;
    }
    Strings Stored() {
        return Rows(
            "select TypeID, Precision, Scale, IsNullable, DefaultValue, Comments from Columns "
            "where ColumnID=1");
    }

    std::string shown_;  // what the caller shows after OK

  private:
    QtConversions locale_{QLocale(QLocale::German)};
};

TEST_F(FrmColumnTest, ShowsTheColumnAndWritesWhatWasEdited) {
    const std::string longDefault(40000, 'x');
    EXPECT_TRUE(Edit([&] {
        EXPECT_EQ(Dialog().windowTitle(), "Column Properties");
        EXPECT_EQ(In<QLabel>("lblColumnName").text() + In<QLabel>("lblTableName").text(), "AChild");
        EXPECT_TRUE(In("imgKey").isVisible());
        EXPECT_EQ(In<QComboBox>("cmbType").currentText(), "DECIMAL");
        EXPECT_EQ(TextOf("txtPrecision") + " " + TextOf("txtScale"), "5 2");
        EXPECT_EQ(Focus(), "cmbType");

        Type("cmbType", "varc");
        EXPECT_EQ(Enabled("lblPrecision txtPrecision lblScale txtScale txtDefault"),
                  "lblPrecision txtPrecision");
        EXPECT_EQ(TextOf("txtScale"), "0");
        Enter("txtPrecision", "4x0");
        Press("txtPrecision", Qt::Key_Home);
        Type("txtPrecision", "a3");
        EXPECT_EQ(TextOf("txtPrecision"), "340");
        EXPECT_EQ(In<QLineEdit>("txtPrecision").cursorPosition(), 1);
        Click("chkAllowNulls");
        Click("chkWithDefault");
        In<QLineEdit>("txtDefault").insert(QString::fromStdString(longDefault));
        In<QPlainTextEdit>("txtComment").selectAll();
        Type("txtComment", "a\rb");
        In<QPlainTextEdit>("txtComment").insertPlainText("\u00a0c\u2028d");
        Click("cmdOK");
    }));
    EXPECT_EQ(Stored(), Strings{"12|340|0|0|" + longDefault + "|a\r\nb\u00a0c\r\nd"});
    EXPECT_EQ(shown_, "key VARCHAR(340)");
}

TEST_F(FrmColumnTest, LeadsToTheFieldThatIsRefused) {
    EXPECT_FALSE(Edit(
        [this] {
            EXPECT_FALSE(In("imgKey").isVisible());
            Enter("txtPrecision", "\b");
            In<QTabWidget>("SSTab1").setCurrentIndex(1);
            Click("cmdOK");
            EXPECT_EQ(In<QTabWidget>("SSTab1").currentIndex(), 0);
            EXPECT_EQ(Focus() + TextOf("txtPrecision"), "txtPrecision0");
            Enter("txtPrecision", "9");
            Click("chkWithDefault");
            Enter("txtDefault", "1.5");
            Click("cmdDefault");
            EXPECT_EQ(Focus(), "txtDefault");
            EXPECT_TRUE(Dialog().isVisible());
            Enter("txtDefault", "1,5");
            Click("cmdDefault");
            Press("txtDefault", Qt::Key_Escape);
        },
        "notnull"));
    EXPECT_EQ(Told(), (Strings{"i Precision must be greater than zero.",
                               "c Illegal default value of this column type"}));
    EXPECT_EQ(Stored(), Strings{"3|5|2|1|-|one"});
    EXPECT_EQ(Ws().GetProjectSettings("DefPrec") + Ws().GetProjectSettings("DefDefault"), "91,5");
}

TEST(QtConversionsTest, ReadsNumbersAndDatesOfTheLocale) {
    struct Case {
        const char* locale;
        std::vector<std::pair<const char*, double>> numbers;
        Strings noNumbers;
        Strings dates;
        Strings noDates;
    };
    const Case cases[] = {
        {"en_US",
         {{" 1,234.5 ", 1234.5}, {"-2", -2}, {"1e3", 1000}},
         {"", " ", "abc", "1,5.0x", "1.2.3", "inf", "nan", "1e999"},
         {"1/31/2026", "01/31/26", "January 31, 2026", "Saturday, January 31, 2026", "2026-01-31", "4:05 PM",
          "16:05", "16:05:09", " 1/31/2026  4:05 PM", "2026-01-31T16:05:09"},
         {"", " ", "31/1/2026", "2026-02-30", "25:00", "tomorrow", "5"}},
        {"de_DE",
         {{"1.234,5", 1234.5}, {"0,25", 0.25}},
         {"1,2,3", "1.5"},
         {"31.01.2026", "31.1.26", "31. Januar 2026", "31.1.2026 16:05", "2026-01-31"},
         {"1/31/2026", "32.1.2026"}},
        {"fr_FR",
         {{"1\u202f234,5", 1234.5}, {"1 234", 1234}},
         {"1.5"},
         {"31/01/2026", "31 janvier 2026"},
         {}},
        {"ja_JP",
         {{"1,234.5", 1234.5}},
         {},
         {"2026/1/31", "2026/01/31", "2026年1月31日", "16:05"},
         {"31/1/2026"}},
        {"ko_KR", {{"1,234.5", 1234.5}}, {}, {"26. 1. 31.", "2026. 1. 31.", "2026년 1월 31일 토요일"}, {}},
    };
    for (const auto& [name, numbers, noNumbers, dates, noDates] : cases) {
        SCOPED_TRACE(name);
        const QtConversions locale{QLocale(name)};
        for (const auto& [text, number] : numbers) EXPECT_EQ(locale.ToNumber(text), number) << text;
        for (const auto& text : noNumbers) EXPECT_EQ(locale.ToNumber(text), std::nullopt) << text;
        for (const auto& text : dates) EXPECT_TRUE(locale.IsDate(text)) << text;
        for (const auto& text : noDates) EXPECT_FALSE(locale.IsDate(text)) << text;
    }
}

}  // namespace

}  // namespace tessel::test
