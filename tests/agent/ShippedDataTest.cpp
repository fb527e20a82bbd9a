// The configuration shipped in ./Data holds every key the player reads, with values that fit the
// current simulation server.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "agent/Startup.h"
#include "support/FileHelpers.h"
#include "utilities/config/Config.h"

namespace {

class ShippedDataTest : public ::testing::Test {
protected:
    void SetUp() override {
        Config::resetState();
        cwd = std::make_unique<support::ScopedChdir>(KORVEL_SOURCE_DIR);
        testing::internal::CaptureStdout();
        ConfigInitializing();
        loadOutput = testing::internal::GetCapturedStdout();
    }
    void TearDown() override {
        cwd.reset();
        Config::resetState();
    }
    std::unique_ptr<support::ScopedChdir> cwd;
    std::string loadOutput;
};

TEST_F(ShippedDataTest, IndexListsTheSixConfigurationsAndEverySkillTheAgentPlays) {
    const ConfigFile& index = config["Config_FileAdresses"];
    EXPECT_EQ(index["DefultSet"]["ConfigurationDataFileCount"].asInt(), 6);
    for (const char* name : {"LoggerInitialize", "ServerInitialize", "WorldModelParameters",
                             "GoalKeeperParameters", "DefenceParameters", "OffenseParameters"}) {
        EXPECT_TRUE(config.exists(name)) << name;
        EXPECT_NE(loadOutput.find(std::string("/") + name + ".conf "), std::string::npos) << name;
    }

    std::set<std::string> listed;
    const int skills = index["DefultSet"]["SkillDataFileCount"].asInt();
    for (int i = 1; i <= skills; ++i) {
        listed.insert(index["SkillDataFileName"][std::to_string(i)].asString());
    }
    std::vector<std::string> played = {"Walk",     "ShortWalk",    "Stop",
                                       "LeftKick", "LeftSideWalk", "RightSideWalk",
                                       "Style",    "FrontStandUp", "BackStandUp"};
    for (const char* side : {"TurnLeft", "TurnRight"}) {
        for (const char* size : {"40", "30", "25", "15", "10", "5"}) {
            played.push_back(std::string(side) + size);
        }
    }
    for (const std::string& name : played) {
        EXPECT_EQ(listed.count(name), 1U) << name << " is not listed";
    }
    EXPECT_EQ(listed.size(), static_cast<size_t>(skills)) << "a skill is listed twice";
}

TEST_F(ShippedDataTest, LoggingAndServerSettings) {
    const ConfigGroup& logger = config["LoggerInitialize"]["Logger"];
    EXPECT_EQ(logger["Directory"].asString(), "./LogFiles/");
    EXPECT_TRUE(logger["LogMain"].asBool());
    EXPECT_TRUE(logger["Offline"].asBool());

    const ConfigFile& server = config["ServerInitialize"];
    EXPECT_FALSE(server["Server"]["OfflinePlaying"].asBool());
    EXPECT_EQ(server["Server"]["Version"].asString().rfind("0.7.", 0), 0U);
    EXPECT_EQ(server["Connection"]["HostName"].asString(), "127.0.0.1");
    EXPECT_EQ(server["Connection"]["Port"].asInt(), 3100);
    EXPECT_EQ(server["Public"]["UniformNum"].asInt(), 1);
}

TEST_F(ShippedDataTest, FieldAndBallOfTheCurrentServer) {
    const ConfigFile& world = config["WorldModelParameters"];
    EXPECT_EQ(world["Field"]["Length"].asFloat(), 30.0F);
    EXPECT_EQ(world["Field"]["Width"].asFloat(), 20.0F);
    EXPECT_EQ(world["Field"]["GoalWidth"].asFloat(), 2.1F);
    EXPECT_EQ(world["Ball"]["Radius"].asFloat(), 0.042F);
}

TEST_F(ShippedDataTest, EachRoleStartsInsideItsOwnHalf) {
    const struct {
        const char* file;
        const char* uniNum;
    } roles[] = {
        {"GoalKeeperParameters", "1"}, {"DefenceParameters", "2"}, {"OffenseParameters", "3"}};
    for (const auto& role : roles) {
        const ConfigGroup& init = config[role.file]["Initialize"];
        EXPECT_EQ(init["UniNum"].asString(), role.uniNum) << role.file;
        const ConfigValue& beam = init["Beam"];
        ASSERT_EQ(beam.size(), 3) << role.file;
        const float x = beam[0].b_value(0.0F);
        const float y = beam[1].b_value(0.0F);
        const float angle = beam[2].b_value(0.0F);
        EXPECT_LT(x, 0.0F) << role.file;
        EXPECT_GT(x, -15.0F) << role.file;
        EXPECT_LT(std::fabs(y), 10.0F) << role.file;
        EXPECT_LE(std::fabs(angle), 180.0F) << role.file;
    }
}

}  // namespace
