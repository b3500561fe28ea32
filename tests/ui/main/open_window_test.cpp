#include "ui/main/open_window.h"

#include <QImage>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <fstream>

#include "ui/main/application.h"
#include "ui/main/window_test.h"

namespace tessel::test {

class OpenWindowTest : public WindowTest {
  protected:
    // What is printed on stderr when no picture can be saved.
    std::string Refusal(const std::string& picture) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(SavePicture(state, frontend, picture), 2);
        EXPECT_FALSE(std::filesystem::exists(picture));
        return testing::internal::GetCapturedStderr();
    }
};

TEST_F(OpenWindowTest, RunsUntilItIsClosedAndSaysWhyItCannotStart) {
    WhenOpen("frmMain", [](QWidget& window) { window.close(); });
    EXPECT_EQ(ShowWindow(state, frontend), 0);
    EXPECT_FALSE(state.window);

    const auto database = folder / "Projects/Demo/DBSCHEMA/Demo.mdb";
    std::ofstream(database) << "no database at all";
    QString reason;
    WhenOpen("messageBox", [&](QWidget& window) {
        reason = dynamic_cast<QMessageBox&>(window).informativeText();
        window.close();
    });
    EXPECT_EQ(ShowWindow(state, frontend), 2);
    EXPECT_EQ(reason.toStdString(), state.texts->Text(1103));
    EXPECT_NE(Refusal(folder / "p.png").find(state.texts->Text(1103)), std::string::npos);

    frontend->names.clear();
    WhenOpen("messageBox", [&](QWidget& window) { window.close(); });
    EXPECT_EQ(ShowWindow(state, frontend), 2);
}

TEST_F(OpenWindowTest, SavesAPictureOfTheWindow) {
    const std::string picture = folder / "window.png";
    const auto saved = [&] {
        EXPECT_EQ(SavePicture(state, frontend, picture), 0);
        return QImage(QString::fromStdString(picture), "png");
    };
    const QImage withoutTables = saved();
    EXPECT_GT(withoutTables.width(), 300);
    AddTable("Orders");
    EXPECT_NE(saved(), withoutTables);
    const std::string nowhere = folder / "none/window.png";
    EXPECT_NE(Refusal(nowhere).find("The file " + nowhere + " cannot be written: "), std::string::npos);
}

TEST_F(OpenWindowTest, WithoutADisplayItSaysSo) {
    const Environment none{{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}, {"QT_QPA_PLATFORM", ""}};
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunWindow(state, frontend, {}), 2);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("no display"), std::string::npos);
}

TEST(ApplicationTest, ReportsWhatAnEventThrows) {
    struct : QObject {
        bool event(QEvent*) override { throw Error(ErrorKind::Sql, "the reason"); }
    } failing;
    QEvent event(QEvent::User);
    QApplication::sendEvent(&failing, &event);
    EXPECT_EQ(std::exchange(reported, {}), (std::vector<std::string>{"the reason"}));
}

TEST(ApplicationTest, ButtonsSpeakTheLanguageThatIsInstalled) {
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    const bool installed = std::filesystem::exists((folder + "/qtbase_ja.qm").toStdString());
    for (const auto& [language, text] :
         {std::pair{"ja", installed ? "キャンセル" : "Cancel"}, {"en", "Cancel"}}) {
        dynamic_cast<Application&>(*qApp).UseLanguage(language);
        const QMessageBox box(QMessageBox::NoIcon, "", "", QMessageBox::Cancel);
        EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), text);
    }
}

}  // namespace tessel::test
