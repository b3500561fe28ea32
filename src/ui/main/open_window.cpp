#include "ui/main/open_window.h"

#include <QBuffer>
#include <QImage>
#include <QLoggingCategory>
#include <algorithm>
#include <filesystem>
#include <iostream>

#include "engine/queued_questions.h"
#include "engine/tessel_engine.h"
#include "platform/files/file_service.h"
#include "tessel/error.h"
#include "ui/controls/qt_settings.h"
#include "ui/main/application.h"
#include "ui/main/frm_main.h"
#include "ui/main/qt_questions.h"
#include "ui/main/start_dialog.h"

namespace tessel {

namespace {

constexpr int done = 0;
constexpr int failed = 2;

void Report(const ComponentState& state, const std::string& message) {
    state.questions->Show({.text = message, .title = state.Title(), .icon = host::Icon::Critical});
}

// The window with the project in it; none when the editor could not start, and that has been reported.
std::shared_ptr<frmMain> Start(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend) {
    try {
        if (TesselEngine(state).Run(frontend, Missing{}, Missing{}) != 0) return nullptr;
    } catch (const std::exception& error) {
        Report(state, error.what());
        return nullptr;
    }
    return std::static_pointer_cast<frmMain>(state.window);
}

std::shared_ptr<ToolWindow> LoadUnseenWindow(ComponentState& state) {
    auto window = std::make_shared<frmMain>(state);
    window->setAttribute(Qt::WA_DontShowOnScreen);
    window->Load(window);
    return window;
}

void PrintAsked(QueuedQuestions& questions) {
    for (const auto& asked : questions.TakeAsked()) std::cerr << "tessel: " << OneLine(asked) << '\n';
}

bool Write(const QImage& image, const std::string& path) {
    QByteArray content;
    QBuffer buffer(&content);
    try {
        if (!image.save(&buffer, "PNG"))
            throw Error(ErrorKind::File, "The picture " + path + " cannot be made.");
        files::ReplaceFile(std::filesystem::absolute(path).lexically_normal().string(),
                           content.toStdString());
        return true;
    } catch (const std::exception& error) {
        std::cerr << "tessel: " << error.what() << '\n';
        return false;
    }
}

}  // namespace

bool HasDisplay() {
    static constexpr const char* variables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::ranges::any_of(variables,
                               [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

int ShowWindow(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend) {
    state.questions = std::make_shared<QtQuestions>(state);
    state.loadMainWindow = LoadMainWindow;
    if (!Start(state, frontend)) return failed;
    QtSettings settings(SettingsPath(state.Title()));
    RememberWorkspace(settings, frontend->GetCorvaneName(host::name_item::workspaceFolder));
    QApplication::setQuitOnLastWindowClosed(true);
    const int code = QApplication::exec();
    state.window.reset();
    return code;
}

int SavePicture(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend,
                const std::string& picture) {
    const auto questions = std::make_shared<QueuedQuestions>();
    state.questions = questions;
    state.loadMainWindow = LoadUnseenWindow;
    const auto window = Start(state, frontend);
    bool written = false;
    if (window) {
        QApplication::processEvents();
        written = Write(window->grab().toImage(), picture);
    }
    PrintAsked(*questions);
    state.window.reset();
    return written ? done : failed;
}

int RunWindow(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend,
              const OpenOptions& options) {
    const bool offscreen = !HasDisplay();
    if (offscreen && options.picture.empty()) {
        std::cerr << "tessel: There is no display to show the window on. Start the program from a graphical "
                     "session, or have a picture of the window saved.\n";
        return failed;
    }
    // That platform warns of everything that it lacks.
    if (offscreen) QLoggingCategory::setFilterRules("default.warning=false");
    char program[] = "tessel", platform[] = "-platform", name[] = "offscreen";
    char* arguments[] = {program, platform, name, nullptr};
    int count = offscreen ? 3 : 1;
    Application application(count, arguments, [&state](const std::string& what) { Report(state, what); });
    application.UseLanguage(state.texts->Language());
    return options.picture.empty() ? ShowWindow(state, frontend)
                                   : SavePicture(state, frontend, options.picture);
}

}  // namespace tessel
