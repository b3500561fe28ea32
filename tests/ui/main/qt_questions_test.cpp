#include "ui/main/qt_questions.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "ui/main/window_test.h"

namespace tessel::test {

using host::Answer;
using host::Buttons;
using host::Icon;

class QtQuestionsTest : public testing::Test {
  protected:
    ComponentState state;
};

TEST_F(QtQuestionsTest, AMessageBoxShowsItsIconAndReturnsTheButton) {
    struct {
        Icon icon;
        Buttons buttons;
        QMessageBox::Icon shownIcon;
        QMessageBox::StandardButton clicked;
        int buttonCount;
        Answer answer;
    } const cases[] = {
        {Icon::None, Buttons::OK, QMessageBox::NoIcon, QMessageBox::Ok, 1, Answer::OK},
        {Icon::Critical, Buttons::OKCancel, QMessageBox::Critical, QMessageBox::Ok, 2, Answer::OK},
        {Icon::Exclamation, Buttons::OKCancel, QMessageBox::Warning, QMessageBox::Cancel, 2, Answer::Cancel},
        {Icon::Information, Buttons::YesNo, QMessageBox::Information, QMessageBox::No, 2, Answer::No},
    };
    for (const auto& expected : cases) {
        WhenOpen("messageBox", [&](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            EXPECT_EQ(box.icon(), expected.shownIcon);
            EXPECT_EQ(box.buttons().size(), expected.buttonCount);
            box.button(expected.clicked)->click();
        });
        EXPECT_EQ(QtQuestions(state).Show(
                      {.text = "?", .title = "T", .icon = expected.icon, .buttons = expected.buttons}),
                  expected.answer);
    }
}

TEST_F(QtQuestionsTest, TextsAreNoMarkupAndCutWhenTooLong) {
    const std::string lines = "first" + std::string(200, '\n') + "last", line(5000, 'w');
    const struct {
        host::MessageBox box;
        QString text, detail, whole;
    } cases[] = {
        {{.text = "Drop <b>T</b>\r\nand U\rnow?", .detail = "<i>why</i>"},
         "Drop <b>T</b>\nand U\nnow?",
         "<i>why</i>",
         ""},
        {{.text = lines}, "first" + QString(14, '\n') + "…", "", QString::fromStdString(lines)},
        {{.text = "short", .detail = line},
         "short",
         QString(1000, 'w') + "…",
         "short\n\n" + QString::fromStdString(line)},
    };
    for (const auto& expected : cases) {
        WhenOpen("messageBox", [&](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            EXPECT_EQ(box.text(), expected.text);
            EXPECT_EQ(box.informativeText(), expected.detail);
            EXPECT_EQ(box.detailedText(), expected.whole);
            for (const QLabel* label : box.findChildren<QLabel*>())
                EXPECT_TRUE(label->text().isEmpty() || label->textFormat() == Qt::PlainText)
                    << label->text().toStdString();
            EXPECT_LT(box.height(), 700);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        EXPECT_EQ(QtQuestions(state).Show(expected.box), Answer::OK);
    }
}

TEST_F(QtQuestionsTest, AnInputDialogGivesItsProposalBackAndShowsALongPrompt) {
    const std::string proposal = "a\r\n" + std::string(40000, 'b');
    WhenOpen("inputDialog", [&](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>()->toolTip(), "<p>" + QString(2000, 'w') + "&lt;b&gt;</p>");
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    EXPECT_EQ(QtQuestions(state).Ask({.prompt = std::string(2000, 'w') + "<b>", .text = proposal}), proposal);
}

TEST_F(QtQuestionsTest, TheInputDialogReturnsWhatWasTyped) {
    const auto ask = [this](const QString& typed, QDialogButtonBox::StandardButton button) {
        WhenOpen("inputDialog", [=](QWidget& dialog) {
            auto& field = *dialog.findChild<QLineEdit*>("txtInput");
            EXPECT_EQ(field.text(), "old");
            EXPECT_EQ(field.selectedText(), "old");
            field.setText(typed);
            dialog.findChild<QDialogButtonBox*>()->button(button)->click();
        });
        return QtQuestions(state).Ask({.prompt = "Name", .title = "Tessel", .text = "old", .helpFile = ""});
    };
    EXPECT_EQ(ask("顧客", QDialogButtonBox::Ok), "顧客");
    EXPECT_EQ(ask("", QDialogButtonBox::Ok), "");
    EXPECT_EQ(ask("new", QDialogButtonBox::Cancel), std::nullopt);
}

}  // namespace tessel::test
