#pragma once

#include <QSettings>

#include "platform/settings/settings.h"

namespace tessel {

// The settings in an ini file, which is made when the first one is set.
class QtSettings : public Settings {
  public:
    explicit QtSettings(const std::string& path);

    std::optional<std::string> Get(const std::string& section, const std::string& key) const override;
    void Set(const std::string& section, const std::string& key, const std::string& value) override;

  private:
    QSettings settings_;
};

}  // namespace tessel
