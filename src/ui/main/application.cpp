#include "ui/main/application.h"

#include <QLibraryInfo>

#include "ui/controls/connect.h"

namespace tessel {

Application::Application(int& count, char** arguments, std::function<void(const std::string&)> report)
    : QApplication(count, arguments), report_(std::move(report)) {
    // A message box may come and go before there is a window.
    setQuitOnLastWindowClosed(false);
}

void Application::UseLanguage(const std::string& language) {
    removeTranslator(&translator_);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (translator_.load("qtbase_" + QString::fromStdString(language), folder))
        installTranslator(&translator_);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        report_(error.what());
        return false;
    }
}

bool Application::event(QEvent* event) {
    if (event->type() != Failure::EventType()) return QApplication::event(event);
    report_(static_cast<const Failure*>(event)->Text());
    return true;
}

}  // namespace tessel
