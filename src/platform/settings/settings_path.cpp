#include <cstdlib>

#include "platform/settings/settings.h"
#include "tessel/error.h"

namespace tessel {
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string SettingsFolder() {
    const auto chosen = Variable("XDG_CONFIG_HOME");
    if (chosen.starts_with('/')) return chosen;  // a relative one is to be passed over, by the XDG rules
    const auto home = Variable("HOME");
    if (!home.empty()) return home + "/.config";
    throw Error(ErrorKind::File,
                "There is no folder for the settings: set the environment variable HOME or XDG_CONFIG_HOME.");
}

}  // namespace

std::string SettingsPath(const std::string& title) { return SettingsFolder() + "/" + title + ".ini"; }

std::string UserComponentsPath() { return SettingsFolder() + "/tessel/components.xml"; }

}  // namespace tessel
