#include <gtest/gtest.h>

#include "platform/settings/settings.h"
#include "platform/text/environment.h"
#include "tessel/error.h"

namespace tessel {
namespace {

TEST(SettingsPath, StandsInTheConfigurationFolder) {
    struct Case {
        std::string chosen, home, path;
    };
    const Case cases[] = {
        {"/x/config", "/home/u", "/x/config/Tessel.ini"},
        {"", "/home/u", "/home/u/.config/Tessel.ini"},
        {"config", "/home/u", "/home/u/.config/Tessel.ini"},
    };
    for (const auto& [chosen, home, path] : cases) {
        const Environment environment{{"XDG_CONFIG_HOME", chosen}, {"HOME", home}};
        EXPECT_EQ(SettingsPath("Tessel"), path);
    }
    const Environment environment{{"XDG_CONFIG_HOME", ""}, {"HOME", ""}};
    EXPECT_THROW((void)SettingsPath("Tessel"), Error);
}

}  // namespace
}  // namespace tessel
