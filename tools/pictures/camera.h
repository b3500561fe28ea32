#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace tessel::pictures {

// Takes pictures of windows and puts them into a folder as PNG files.
class Camera {
  public:
    explicit Camera(QString folder) : folder_(std::move(folder)) {}

    void Take(QWidget& window, const QString& name) const;

    // Does `open`, which shows a modal window of that objectName, and while it is open does `act` with it,
    // takes its picture as `name` and closes it.
    void TakeModal(
        const char* window, const QString& name, const std::function<void()>& open,
        const std::function<void(QWidget&)>& act = [](QWidget&) {}) const;

  private:
    QString folder_;
};

// Colours of a dark desktop.
void UseDarkColours();

}  // namespace tessel::pictures
