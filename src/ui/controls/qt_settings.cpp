#include "ui/controls/qt_settings.h"

namespace tessel {

namespace {

QString PathOf(const std::string& section, const std::string& key) {
    return QString::fromStdString(section + "/" + key);
}

}  // namespace

QtSettings::QtSettings(const std::string& path)
    : settings_(QString::fromStdString(path), QSettings::IniFormat) {}

std::optional<std::string> QtSettings::Get(const std::string& section, const std::string& key) const {
    const QString path = PathOf(section, key);
    if (!settings_.contains(path)) return std::nullopt;
    return settings_.value(path).toString().toStdString();
}

void QtSettings::Set(const std::string& section, const std::string& key, const std::string& value) {
    settings_.setValue(PathOf(section, key), QString::fromStdString(value));
}

}  // namespace tessel
