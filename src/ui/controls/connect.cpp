#include "ui/controls/connect.h"

#include <QCoreApplication>

namespace tessel {

QEvent::Type Failure::EventType() {
    static const auto type = static_cast<Type>(registerEventType());
    return type;
}

void Guard(const std::function<void()>& act) {
    try {
        act();
    } catch (const std::exception& error) {
        QCoreApplication::postEvent(QCoreApplication::instance(), new Failure(error.what()));
    }
}

}  // namespace tessel
