#include "ui/dialogs/options_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include "ui/dialogs/about_box.h"
#include "ui/main/window_test.h"
#include "ui/rules/project_options.h"

namespace tessel::test {
namespace {

constexpr QSize twips(6120, 5355);

constexpr const char* tree = R"(<OPTIONS>
  <!-- stays -->
  <CASE ID='VNT'>
    <BOOL NAME='Flag' CAPTION='@2126' HINT='@2102' VALUE='1'/>
    <TEXT NAME='Folder' CAPTION='&amp;Folder' VALUE='a&amp;b'/>
    <NUMBER NAME='Count' VALUE='-5'/>
    <LIST NAME='Choice' VALUE='x'><ITEM VALUE='x' CAPTION='Ex'/><ITEM VALUE='y'/></LIST>
    <LIST NAME='Odd' VALUE='unknown'><ITEM VALUE='x'/></LIST>
    <GROUP ID='More'><BOOL NAME='Inner'/><UNKNOWN NAME='U'/></GROUP>
    <BOOL NAME='Hidden' VISIBLE='False' VALUE='True'/>
  </CASE>
  <CASE ID='Other'><TEXT NAME='Elsewhere' VALUE='z'/></CASE>
</OPTIONS>)";

class OptionsDialogTest : public WindowTest {
  protected:
    OptionsDialogTest() {
        state.frontend = frontend;
        Give(tree);
    }

    void Give(const std::string& text) const {
        frontend->projectOptions->document = xml::Document::Parse(text, "options");
    }
    [[nodiscard]] std::string Kept() const { return frontend->projectOptions->document.Text(); }

    // Opens the dialog, acts on it and presses the button.
    bool Edit(const char* button, const std::function<void(QWidget&)>& act) {
        WhenOpen("frmOptions", [&](QWidget& dialog) {
            act(dialog);
            Find<QPushButton>(dialog, button).click();
        });
        return EditProjectOptions(state, nullptr, optionCase, twips);
    }

    static void Change(QWidget& dialog) {
        Find<QCheckBox>(dialog, "chkFlag").click();
        Find<QLineEdit>(dialog, "txtFolder").setText("<か>");
        Find<QSpinBox>(dialog, "numCount").setValue(7);
        Find<QComboBox>(dialog, "cmbChoice").setCurrentIndex(1);
        Find<QCheckBox>(dialog, "chkInner").click();
    }
};

TEST_F(OptionsDialogTest, ShowsTheOptionsOfTheCaseThatAreVisible) {
    const auto look = [](QWidget& dialog) {
        EXPECT_EQ(dialog.size(), QSize(408, 357));
        const auto& flag = Find<QCheckBox>(dialog, "chkFlag");
        EXPECT_TRUE(flag.isChecked());
        EXPECT_EQ(flag.text(), "C&lose");
        EXPECT_TRUE(flag.accessibleDescription().startsWith("Linked"));
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtFolder").text(), "a&b");
        EXPECT_EQ(Find<QSpinBox>(dialog, "numCount").value(), -5);
        EXPECT_EQ(Find<QComboBox>(dialog, "cmbChoice").currentText(), "Ex");
        EXPECT_EQ(Find<QComboBox>(dialog, "cmbChoice").itemText(1), "y");
        EXPECT_EQ(Find<QComboBox>(dialog, "cmbOdd").currentIndex(), -1);
        EXPECT_FALSE(Find<QCheckBox>(Find<QWidget>(dialog, "fraMore"), "chkInner").isChecked());
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
        for (const char* name : {"chkHidden", "txtElsewhere"})
            EXPECT_EQ(dialog.findChild<QWidget*>(name), nullptr) << name;
    };
    EXPECT_FALSE(Edit("cmdCancel", look));
    EXPECT_THROW((void)EditProjectOptions(state, nullptr, "//CASE[@ID='Nobody']", twips), Error);
}

TEST_F(OptionsDialogTest, KeepsWhatIsConfirmedAndNothingElse) {
    const std::string before = Kept();
    EXPECT_FALSE(Edit("cmdCancel", Change));
    EXPECT_EQ(Kept(), before);
    std::string after = tree;
    const std::string longTree = std::string(after).replace(after.find("a&amp;b"), 1, 40000, 'f');
    for (const auto& text : {longTree, after}) {
        Give(text);
        const std::string given = Kept();
        EXPECT_TRUE(Edit("cmdOK", [](QWidget&) {}));
        EXPECT_EQ(Kept(), given);
    }

    for (const auto& [from, to] : {std::pair("VALUE='1'", "VALUE='False'"),
                                   {"'a&amp;b'", "'&lt;か>'"},
                                   {"'-5'", "'7'"},
                                   {"NAME='Choice' VALUE='x'", "NAME='Choice' VALUE='y'"},
                                   {"NAME='Inner'", "NAME='Inner' VALUE='True'"}})
        after.replace(after.find(from), std::string(from).size(), to);
    EXPECT_TRUE(Edit("cmdOK", Change));
    EXPECT_EQ(Kept(), xml::Document::Parse(after, "after").Text());
}

TEST_F(OptionsDialogTest, WhatIsTakenBackIsNotKept) {
    OptionCase rules(*frontend->projectOptions, optionCase, *state.texts);
    const Option& folderOption = rules.Root().options[1];
    for (const char* value : {"b", "a&b"}) rules.Set(folderOption, value);
    rules.Save();
    EXPECT_EQ(Kept(), xml::Document::Parse(tree, "before").Text());
}

TEST_F(OptionsDialogTest, LinkedTablesAreImportedUnlessAnOptionSaysOtherwise) {
    const std::pair<const char*, bool> cases[] = {
        {"<OPTIONS/>", true},
        {"<OPTIONS><CASE ID='VNT'><GROUP><BOOL NAME='ImportAtStart' VALUE='true'/></GROUP></CASE></OPTIONS>",
         true},
        {"<OPTIONS><CASE ID='VNT'><BOOL NAME='ImportAtStart' VALUE='False'/></CASE></OPTIONS>", false},
        {"<OPTIONS><CASE ID='X'><BOOL NAME='ImportAtStart' VALUE='False'/></CASE></OPTIONS>", true},
    };
    for (const auto& [text, imports] : cases) {
        Give(text);
        EXPECT_EQ(ImportAtStart(*frontend), imports) << text;
    }
}

TEST_F(OptionsDialogTest, TheAboutBoxNamesTheVersion) {
    QString version;
    WhenOpen("frmAbout", [&](QWidget& dialog) {
        version = Find<QLabel>(dialog, "lblVersion").text();
        dialog.close();
    });
    ShowAbout(state, nullptr);
    EXPECT_TRUE(QRegularExpression("^Version \\d+\\.\\d+\\.\\d+$").match(version).hasMatch())
        << version.toStdString();
}

}  // namespace
}  // namespace tessel::test
