#pragma once

#include <QApplication>
#include <QTranslator>
#include <functional>
#include <string>

namespace tessel {

// The program as Qt runs it. What a slot or an event's handling throws is reported, and the program goes on.
class Application : public QApplication {
  public:
    // `arguments` and `count` outlive the application.
    Application(int& count, char** arguments, std::function<void(const std::string&)> report);

    // Qt's own texts, such as captions of buttons, in the language "en", "ja" or "ko"; in English where no
    // translation is installed.
    void UseLanguage(const std::string& language);

    bool notify(QObject* receiver, QEvent* event) override;
    bool event(QEvent* event) override;

  private:
    std::function<void(const std::string&)> report_;
    QTranslator translator_;
};

}  // namespace tessel
