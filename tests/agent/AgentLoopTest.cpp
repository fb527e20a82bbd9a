// The loop in-process, offline: one turn per recorded line, the command handed over every acting
// turn, and nothing before kick-off.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "agent/AgentModel.h"
#include "agent/Startup.h"
#include "commands/Command.h"
#include "plans/DefencePlan.h"
#include "plans/GoalKeeperPlan.h"
#include "plans/OffensePlan.h"
#include "skills/ConfigReader.h"
#include "support/FileHelpers.h"
#include "support/ScratchDirectory.h"
#include "support/ScriptedServer.h"
#include "utilities/config/Config.h"
#include "utilities/logging/Logger.h"
#include "utilities/net/Connection.h"
#include "worldmodel/Share.h"
#include "worldmodel/WorldModel.h"

namespace fs = std::filesystem;

namespace {

class AgentLoopTest : public ::testing::Test {
protected:
    void SetUp() override {
        Config::resetState();
        Logger::resetState();
        AgentModel::resetState();
        GoalKeeperPlan::resetState();
        DefencePlan::resetState();
        OffensePlan::resetState();
        ConfigReader::resetState();
        delete Share::lastCommand;
        Share::resetState();
        fs::create_directory(dir.path() + "/LogFiles");
        fs::create_directory_symlink(fs::path(KORVEL_SOURCE_DIR) / "Data", dir.path() + "/Data");
    }
    void TearDown() override {
        Connection::resetState();
        delete Share::lastCommand;
        Share::resetState();
        Config::resetState();
        Logger::resetState();
    }

    // The recording: the first messages of the real session, from `first` on.
    void record(size_t first, size_t count) {
        const std::vector<std::string> all = support::ServerScript::readMessages(
            std::string(KORVEL_TEST_DATA_DIR) + "/real-session-3200.txt");
        std::ofstream out(dir.path() + "/LogFiles/Korvel-1.log.offline");
        for (size_t i = first; i < first + count; ++i) {
            out << all[i] << '\n';
            lines.push_back(all[i]);
        }
    }

    void loadConfiguration(const std::string& uniformNumber) {
        ConfigInitializing();
        config["ServerInitialize"]["Server"].add("OfflinePlaying", "true");
        config["ServerInitialize"]["Public"].add("UniformNum", uniformNumber);
    }

    support::ScratchDirectory dir;
    std::vector<std::string> lines;
};

TEST_F(AgentLoopTest, EveryActingTurnHandsItsCommandOverAndReplacesTheLastOne) {
    record(24, 4);  // two messages before kick-off, two of play
    support::ScopedChdir inRunDirectory(dir.path());
    loadConfiguration("3");
    AgentModel agent;
    agent.setUp();
    const Command* neutral = Share::lastCommand;
    ASSERT_NE(neutral, nullptr);
    const WorldModel* world = agent.getWorldModel();
    ASSERT_NE(world->getSelf()->getLastCommand(), nullptr);
    EXPECT_NE(world->getSelf()->getLastCommand(), neutral) << "two distinct neutral commands";

    // Before kick-off: the message is taken in, nothing else happens.
    for (int turn = 0; turn < 2; ++turn) {
        ASSERT_TRUE(agent.cycle());
        EXPECT_EQ(agent.getMessage(), lines[turn]);
        EXPECT_EQ(Share::lastCommand, neutral);
        EXPECT_EQ(agent.getHeadSpeed(), 0.0F);
    }
    // Acting turns: this turn's command is the self's and the last one; the head sweeps.
    ASSERT_TRUE(agent.cycle());
    const Command* first = Share::lastCommand;
    EXPECT_NE(first, neutral);
    EXPECT_EQ(world->getSelf()->getLastCommand(), first);
    EXPECT_FLOAT_EQ(AgentModel::headValue, 7.0F);
    EXPECT_EQ(agent.getHeadSpeed(), 7.0F);
    ASSERT_TRUE(agent.cycle());
    EXPECT_NE(Share::lastCommand, first);
    EXPECT_EQ(world->getSelf()->getLastCommand(), Share::lastCommand);
    EXPECT_FLOAT_EQ(AgentModel::headValue, 14.0F);
    // The recording is exhausted.
    EXPECT_FALSE(agent.cycle());
}

TEST_F(AgentLoopTest, UniformNumberWithoutARoleStillGetsACommand) {
    record(26, 2);
    support::ScopedChdir inRunDirectory(dir.path());
    loadConfiguration("7");
    AgentModel agent;
    EXPECT_EQ(agent.planAct(7, nullptr), nullptr);
    agent.setUp();
    ASSERT_TRUE(agent.cycle());
    ASSERT_NE(Share::lastCommand, nullptr);
    EXPECT_EQ(Share::lastCommand->toString().rfind("(he1 0.872665) (he2 -6.10865)(rae1 0) ", 0), 0u)
        << Share::lastCommand->toString();
}

}  // namespace
