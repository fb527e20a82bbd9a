// Typed settings are read once, and again whenever the configuration changes: a key written
// (as the command line does), a file read again, or the whole store emptied and reloaded.
#include "utilities/config/Settings.h"

#include <gtest/gtest.h>

#include "support/Files.h"
#include "utilities/config/Config.h"
#include "utilities/config/ConfigSetting.h"

namespace {

TEST(SettingsTest, FollowEveryChangeOfTheConfiguration) {
    Config::resetState();
    const support::ScratchDirectory dir;
    config.add("ServerInitialize", dir.write("server.conf",
                                             "[Server]\nOfflinePlaying = false\nVersion = 0.7.4\n"
                                             "[Public]\nUniformNum = 2\n"));
    EXPECT_FALSE(settings::offlinePlaying());
    EXPECT_EQ(settings::uniformNumber(), 2);
    EXPECT_EQ(settings::serverVersion(), "0.7.4");

    config["ServerInitialize"]["Server"].add("OfflinePlaying", "True");
    config["ServerInitialize"]["Public"].add("UniformNum", "3");
    EXPECT_TRUE(settings::offlinePlaying());
    EXPECT_EQ(settings::uniformNumber(), 3);

    config.add("ServerInitialize", dir.write("again.conf", "[Public]\nUniformNum = 1\n"));
    EXPECT_EQ(settings::uniformNumber(), 1);

    Config::resetState();
    config.add("ServerInitialize", dir.write("other.conf", "[Server]\nVersion = 6.0.0\n"));
    EXPECT_EQ(settings::serverVersion(), "6.0.0");
    Config::resetState();
}

TEST(SettingsTest, ASettingOfEachType) {
    Config::resetState();
    const support::ScratchDirectory dir;
    config.add("C", dir.write("c.conf", "[G]\nf = 0.25\ni = 7\nb = 1\ns = two words\n"));
    EXPECT_EQ(ConfigSetting<float>("C", "G", "f").get(), 0.25F);
    EXPECT_EQ(ConfigSetting<int>("C", "G", "i").get(), 7);
    EXPECT_TRUE(ConfigSetting<bool>("C", "G", "b").get());
    EXPECT_EQ(ConfigSetting<std::string>("C", "G", "s").get(), "two words");
    Config::resetState();
}

}  // namespace
