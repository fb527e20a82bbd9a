#include "utilities/config/Config.h"

#include <gtest/gtest.h>

#include "support/CheckDiagnostic.h"
#include "support/ScratchDirectory.h"

namespace {

class ConfigTest : public ::testing::Test {
protected:
    void SetUp() override { Config::resetState(); }

    support::ScratchDirectory dir;
};

TEST_F(ConfigTest, GlobalStoreReachesValuesThroughFourLevels) {
    config.add("ServerInitialize", dir.write("server.conf", "[Server]\nOfflinePlaying = True\n"));
    EXPECT_TRUE(config["ServerInitialize"]["Server"]["OfflinePlaying"].asBool());
}

TEST_F(ConfigTest, EveryConfigObjectSharesTheOneRegistry) {
    Config other;
    other.add("Shared");
    other["Shared"].addGroup("G");
    other["Shared"]["G"].add("k", "v");
    EXPECT_EQ(config["Shared"]["G"]["k"].asString(), "v");
    const Config& constant = other;
    EXPECT_EQ(constant["Shared"]["G"]["k"].asString(), "v");
}

TEST_F(ConfigTest, AddingAKnownNameKeepsItsContent) {
    config.add("C", dir.write("c.conf", "[G]\nk = v\n"));
    config.add("C");
    EXPECT_EQ(config["C"]["G"]["k"].asString(), "v");
}

TEST_F(ConfigTest, AddingAFileToAKnownNameMergesAndLaterKeysWin) {
    config.add("C", dir.write("first.conf", "[G]\na = 1\nb = 2\n"));
    config.add("C", dir.write("second.conf", "[G]\nb = 3\n[H]\nc = 4\n"));
    EXPECT_EQ(config["C"]["G"]["a"].asInt(), 1);
    EXPECT_EQ(config["C"]["G"]["b"].asInt(), 3);
    EXPECT_EQ(config["C"]["H"]["c"].asInt(), 4);
}

TEST_F(ConfigTest, RegisteredFilesCarryTheirNames) {
    config.add("Named", dir.write("n.conf", "[G]\nk = v\n"));
    const ConfigValue& value = config["Named"]["G"]["k"];
    EXPECT_EQ(config["Named"].getName(), "Named");
    EXPECT_EQ(value.getConfigurationName(), "Named");
    EXPECT_EQ(value.getGroupName(), "G");
    EXPECT_EQ(value.getKey(), "k");
}

TEST_F(ConfigTest, ResetStateEmptiesTheRegistry) {
    config.add("Gone");
    ASSERT_TRUE(config.exists("Gone"));
    Config::resetState();
    EXPECT_FALSE(config.exists("Gone"));
}

TEST_F(ConfigTest, UnknownConfigurationIsFatal) {
    EXPECT_EXIT(config["Nope"], ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern(
                    "Config", "ConfigFile& Config::ConfigFiles::operator[](const std::string&)",
                    "it != files.end()", "configuration \"Nope\" is not registered"));
    const Config& constant = config;
    EXPECT_EXIT(
        constant["Nope"], ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern(
            "Config", "const ConfigFile& Config::ConfigFiles::operator[](const std::string&) const",
            "it != files.end()", "configuration \"Nope\" is not registered"));
}

TEST_F(ConfigTest, UnknownGroupIsFatalAndNamesTheConfiguration) {
    config.add("ServerInitialize");
    EXPECT_EXIT(config["ServerInitialize"]["Connection"], ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern(
                    "Config", "ConfigGroup& ConfigFile::operator[](const std::string&)",
                    "it != groups.end()",
                    "configuration \"ServerInitialize\", group \"Connection\" is missing"));
}

TEST_F(ConfigTest, UnknownKeyIsFatalAndNamesConfigurationAndGroup) {
    config.add("Srv", dir.write("s.conf", "[Server]\nVersion = 1\n"));
    EXPECT_EXIT(config["Srv"]["Server"]["Port"], ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern(
                    "Config", "ConfigValue& ConfigGroup::operator[](const std::string&)",
                    "it != values.end()",
                    "configuration \"Srv\", group \"Server\", key \"Port\" is missing"));
    const Config& constant = config;
    EXPECT_EXIT(
        constant["Srv"]["Server"]["Port"], ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern(
            "Config", "const ConfigValue& ConfigGroup::operator[](const std::string&) const",
            "it != values.end()",
            "configuration \"Srv\", group \"Server\", key \"Port\" is missing"));
}

TEST_F(ConfigTest, WordIndexPastTheEndIsFatalAndNamesTheKey) {
    config.add("GoalKeeperParameters",
               dir.write("gk.conf", "[Initialize]\nBeam = -14.5 0.0\nUniNum = 1\n"));
    const ConfigValue& beam = config["GoalKeeperParameters"]["Initialize"]["Beam"];
    EXPECT_FLOAT_EQ(beam[1].b_value(0.0F), 0.0F);
    EXPECT_EXIT(
        beam[2], ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern(
            "Config", "const Str& ConfigValue::operator[](int) const", "i >= 0 && i < size()",
            "configuration \"GoalKeeperParameters\", group \"Initialize\", key \"Beam\": "
            "word index 2, but the value \"-14.5 0.0\" has 2 words"));
    const ConfigValue& number = config["GoalKeeperParameters"]["Initialize"]["UniNum"];
    EXPECT_EXIT(
        number[-1], ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern(
            "Config", "const Str& ConfigValue::operator[](int) const", "i >= 0 && i < size()",
            "configuration \"GoalKeeperParameters\", group \"Initialize\", key "
            "\"UniNum\": word index -1, but the value \"1\" has 1 word"));
}

TEST_F(ConfigTest, WordIndexCheckAlsoCoversValuesWrittenLater) {
    config.add("ServerInitialize");
    config["ServerInitialize"].addGroup("Public");
    config["ServerInitialize"]["Public"].add("UniformNum", "3");
    EXPECT_EQ(config["ServerInitialize"]["Public"]["UniformNum"][0].b_value(0), 3);
    EXPECT_EXIT(
        config["ServerInitialize"]["Public"]["UniformNum"][1], ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern(
            "Config", "const Str& ConfigValue::operator[](int) const", "i >= 0 && i < size()",
            "configuration \"ServerInitialize\", group \"Public\", key \"UniformNum\": "
            "word index 1, but the value \"3\" has 1 word"));
}

// Gives the tests access to the class-wide registry pointer.
class RegistryAccess : public Config {
public:
    static void dropRegistry() { configFiles = nullptr; }
};

TEST_F(ConfigTest, MissingRegistryIsFatal) {
    EXPECT_EXIT(
        {
            RegistryAccess::dropRegistry();
            config.add("X");
        },
        ::testing::ExitedWithCode(1),
        support::checkDiagnosticPattern("Config", "void Config::add(const std::string&)",
                                        "configFiles"));
}

TEST_F(ConfigTest, ANewConfigCreatesAMissingRegistry) {
    EXPECT_EXIT(
        {
            RegistryAccess::dropRegistry();
            const Config fresh;
            std::exit(fresh.exists("X") ? 2 : 3);
        },
        ::testing::ExitedWithCode(3), "");
}

}  // namespace
