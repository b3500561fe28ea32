#pragma once

#include <optional>
#include <string>

namespace tessel {

// The per-user settings store: named texts in named sections.
class Settings {
  public:
    virtual ~Settings() = default;
    [[nodiscard]] virtual std::optional<std::string> Get(const std::string& section,
                                                         const std::string& key) const = 0;
    virtual void Set(const std::string& section, const std::string& key, const std::string& value) = 0;
};

// The ini file that holds the settings of the application `title`: TITLE.ini under XDG_CONFIG_HOME, or under
// .config of the home folder.
[[nodiscard]] std::string SettingsPath(const std::string& title);

// The user's registry of add-on components, beside the settings: tessel/components.xml.
[[nodiscard]] std::string UserComponentsPath();

}  // namespace tessel
