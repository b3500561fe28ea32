#include "ui/dialogs/form_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTreeWidget>

#include "ui/dialogs/dialog_test.h"

namespace tessel::test {

namespace {

using host::FormField;
using Kind = FormField::Kind;

class FormDialogTest : public DialogTest {
  protected:
    // What the form gives when `act` has used it; "cancelled" when it gives nothing.
    std::string Filled(const host::Form& shown, const std::function<void()>& act) {
        const auto values = Use(
            "frmForm", [&] { return FormDialog(state, shown, nullptr).Fill(); }, act);
        if (!values) return "cancelled";
        std::string given;
        for (const auto& [key, value] : *values) given += key + '=' + ToText(value) + ';';
        return given;
    }
    std::string Confirmed(const host::Form& shown) {
        return Filled(shown, [this] { Click("cmdOK"); });
    }
    // Chooses in the dialog that the button opens, which must start with `start`.
    void Browse(const char* button, const QString& start, const QString& chosen) {
        WhenOpen("fileDialog", [=](QWidget& box) {
            auto& dialog = dynamic_cast<QFileDialog&>(box);
            EXPECT_EQ(dialog.selectedFiles().value(0), start);
            dialog.findChild<QLineEdit*>()->setText(chosen);
            QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
        });
        Click(button);
    }

    const host::Form form{
        .title = "Tool",
        .text = "<b>all</b>",
        .okCaption = "&Write",
        .fields = {{.key = "t", .kind = Kind::Text, .caption = "&Text:", .value = "a\r\nb"},
                   {.key = "n", .kind = Kind::Number, .caption = "&Number:", .value = "12"},
                   {.key = "c", .kind = Kind::Check, .caption = "&Check", .value = true},
                   {.key = "o",
                    .kind = Kind::Choice,
                    .caption = "C&hoice:",
                    .value = "y",
                    .choices = {{"x", "First"}, {"y", "Second"}}},
                   {.key = "f", .kind = Kind::OpenFile, .caption = "&File:", .value = "in.cpy"},
                   {.key = "s",
                    .kind = Kind::SaveFile,
                    .caption = "&Save:",
                    .value = "out.sql",
                    .filter = "SQL scripts (*.sql)"},
                   {.key = "note", .kind = Kind::Note, .caption = "N&ote:", .value = "<i>1\r\n2"},
                   {.key = "list",
                    .kind = Kind::List,
                    .caption = "&List:",
                    .columns = {"A", "B"},
                    .rows = {{"1", "<u>"}, {"2"}, {"3", "4", "5"}}}}};
};

TEST_F(FormDialogTest, WhatIsNotTouchedKeepsItsValueAndWhatIsTypedIsGiven) {
    EXPECT_EQ(Confirmed(form), "t=a\r\nb;n=12;c=True;o=y;f=in.cpy;s=out.sql;");
    EXPECT_EQ(Filled(form, [this] { Press("cmdCancel", Qt::Key_Escape); }), "cancelled");
    const auto fill = [this] {
        EXPECT_EQ(Dialog().windowTitle(), "Tool");
        EXPECT_EQ(In<QAbstractButton>("cmdOK").text(), "&Write");
        EXPECT_EQ(In<QPlainTextEdit>("note").toPlainText(), "<i>1\n2");
        EXPECT_EQ(In<QTreeWidget>("list").topLevelItem(2)->text(1), "4");
        for (const QLabel* label : Dialog().findChildren<QLabel*>())
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
        std::string order;
        for (int step = 0; step < 10; ++step) {
            order += Focus() + ' ';
            QTest::keyClick(Dialog().focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(order, "t n c o f f_browse s s_browse note list ");
        Enter("t", "new");
        Press("n", Qt::Key_Up);
        Press("c", Qt::Key_Space);
        Press("o", Qt::Key_Up);
        Press("s", Qt::Key_Return);
    };
    EXPECT_EQ(Filled(form, fill), "t=new;n=13;c=False;o=x;f=in.cpy;s=out.sql;");
}

TEST_F(FormDialogTest, FilesAreChosenFromTheWorkspaceOn) {
    const std::string input = folder / "in.cpy";
    Write(input, "");
    Write(folder / "new.sql", "");  // it is not the form that asks before a file is replaced
    const QString start = QString::fromStdString(folder.Path()) + '/';
    const auto fill = [&] {
        Browse("f_browse", start + "in.cpy", start + "in.cpy");
        Browse("s_browse", start + "out.sql", start + "new");
        Click("cmdOK");
    };
    EXPECT_EQ(Filled(form, fill),
              "t=a\r\nb;n=12;c=True;o=y;f=" + input + ";s=" + std::string(folder / "new.sql") + ";");
}

TEST_F(FormDialogTest, FormsThatMakeNoSenseStillWork) {
    const std::string longText(3000, 'x');
    EXPECT_EQ(Confirmed({}), "");
    EXPECT_EQ(Confirmed({.fields = {{.key = "none", .kind = Kind::Choice, .value = ""},
                                    {.key = "l", .kind = Kind::List, .rows = {{"cell"}}}}}),
              "none=;");
    host::Form large{.text = longText};
    for (int number = 0; number < 1000; ++number)
        large.fields.push_back({.key = std::to_string(number), .caption = longText, .value = longText});
    large.fields.push_back({.key = "list", .kind = Kind::List, .columns = {"A"}});
    for (int row = 0; row < 10000; ++row) large.fields.back().rows.push_back({std::to_string(row)});
    const auto look = [this] {
        const QSize room = Dialog().screen()->availableSize();
        EXPECT_LE(Dialog().width(), room.width());
        EXPECT_LE(Dialog().height(), room.height());
        EXPECT_EQ(In<QTreeWidget>("list").topLevelItemCount(), 10000);
        Press("999", Qt::Key_End);
        QTest::keyClick(&In("999"), Qt::Key_A);
        Click("cmdOK");
    };
    const std::string given = Filled(large, look);
    EXPECT_TRUE(given.starts_with("0=" + longText + ";1="));
    EXPECT_TRUE(given.ends_with("999=" + longText + "a;"));
}

}  // namespace

}  // namespace tessel::test
