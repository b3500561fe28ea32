#include <gtest/gtest.h>

#include "platform/settings/settings.h"
#include "platform/text/environment.h"
#include "tessel/error.h"

namespace tessel {
namespace {

TEST(SettingsPath, StandsInTheConfigurationFolder) {
    for (const auto& [chosen, path] :
         std::map<std::string, std::string>{{"/x/config", "/x/config/Tessel.ini"},
                                            {"", "/home/u/.config/Tessel.ini"},
                                            {"config", "/home/u/.config/Tessel.ini"}}) {
        const Environment environment{{"XDG_CONFIG_HOME", chosen}, {"HOME", "/home/u"}};
        EXPECT_EQ(SettingsPath("Tessel"), path);
    }
    const Environment environment{{"XDG_CONFIG_HOME", ""}, {"HOME", ""}};
    EXPECT_THROW((void)SettingsPath("Tessel"), Error);
}

}  // namespace
}  // namespace tessel
