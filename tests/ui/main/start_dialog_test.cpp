#include "ui/main/start_dialog.h"

#include <QComboBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "ui/main/window_test.h"

namespace tessel::test {

class StartDialogTest : public WindowTest {
  protected:
    // Clicks the button of a dialog over these workspaces; "folder|project" when that closes it.
    std::string Click(const char* button, const std::vector<std::string>& recent = {}) {
        StartDialog dialog(state.texts, Offers(), recent);
        dialog.show();
        Find<QPushButton>(dialog, button).click();
        if (dialog.result() != QDialog::Accepted) {
            EXPECT_TRUE(dialog.isVisible()) << "it stays";
            return "";
        }
        return dialog.Choice().folder + '|' + dialog.Choice().project.value_or("");
    }
    StartOffers Offers() {
        StartOffers offers;
        offers.find = [](const std::string& path) -> StartChoice {
            if (path.ends_with("none")) throw Error(ErrorKind::File, path + " is <b>none</b>.");
            return {path, std::nullopt};
        };
        offers.make = [](const auto& made, const auto& project) { return StartChoice{made, project}; };
        offers.sample = [] { return StartChoice{"sample", std::nullopt}; };
        offers.projects = [this](const std::string&) { return projects; };
        return offers;
    }
    void ChooseFolder() {
        WhenOpen("QFileDialog", [this](QWidget& dialog) {
            Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(folder.Path()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    static void Answer(const QString& text, bool accepts) {
        WhenOpen("inputDialog", [=](QWidget& window) {
            dynamic_cast<QInputDialog&>(window).setTextValue(text);
            dynamic_cast<QInputDialog&>(window).done(accepts);
        });
    }

    std::vector<std::string> projects{"Only"};
};

TEST_F(StartDialogTest, TheLastTenWorkspacesAreRemembered) {
    QtSettings settings(folder / "settings");
    for (const char* path : {"/k", "/j", "/i", "/h", "/g", "/f", "/e", "/d", "/c", "/b", "/a", "/c"})
        RememberWorkspace(settings, path);
    EXPECT_EQ(RecentWorkspaces(settings),
              (Lines{"/c", "/a", "/b", "/d", "/e", "/f", "/g", "/h", "/i", "/j"}));
}

TEST_F(StartDialogTest, EachButtonOpensItsWorkspace) {
    EXPECT_EQ(Click("cmdOpen", {"/first", "/second"}), "/first|");
    EXPECT_EQ(Click("cmdOpen"), "") << "there is none";
    EXPECT_EQ(Click("cmdSample"), "sample|");
    ChooseFolder();
    EXPECT_EQ(Click("cmdOpenFolder"), folder.Path() + "|");
    ChooseFolder();
    Answer("Library", true);
    EXPECT_EQ(Click("cmdNew"), folder.Path() + "|Library");
    ChooseFolder();
    Answer("Library", false);
    EXPECT_EQ(Click("cmdNew"), "");
}

TEST_F(StartDialogTest, TheListOpensItsWorkspaceOnce) {
    int tried = 0;
    StartOffers offers = Offers();
    offers.find = [&](const std::string& path) -> StartChoice {
        if (++tried == 1) throw Error(ErrorKind::File, "busy");
        return {path, std::nullopt};
    };
    StartDialog dialog(state.texts, offers, {"/first", "/second"});
    dialog.show();
    auto& list = Find<QListWidget>(dialog, "lvRecent");
    WhenOpen("messageBox", [](QWidget& box) { box.close(); });
    Press(list, Qt::Key_Return);
    EXPECT_EQ(tried, 1);
    const QPoint second = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(dialog.Choice().folder, "/second");
}

TEST_F(StartDialogTest, AFolderThatIsNoWorkspaceIsSaidToBeNone) {
    QString said;
    WhenOpen("messageBox", [&](QWidget& box) {
        said = dynamic_cast<QMessageBox&>(box).text();
        box.close();
    });
    EXPECT_EQ(Click("cmdOpen", {"/none", "/second"}), "");
    EXPECT_EQ(said, "/none is <b>none</b>.");
}

TEST_F(StartDialogTest, OfSeveralProjectsOneIsChosen) {
    projects = {"Lending", "Shop"};
    Answer("Shop", true);
    EXPECT_EQ(Click("cmdSample"), "sample|Shop");
    Answer("Shop", false);
    EXPECT_EQ(Click("cmdSample"), "");
}

}  // namespace tessel::test
