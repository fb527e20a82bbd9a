// The agent's decisions that need no server: the head sweep, the plan dispatch for roles
// without a plan, and its signal reactions.
#include "agent/AgentModel.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "body/Body.h"
#include "commands/Command.h"
#include "plans/OffensePlan.h"
#include "plans/SubBehaviour.h"
#include "support/Files.h"
#include "utilities/config/Config.h"
#include "utilities/logging/LogFile.h"
#include "utilities/logging/Logger.h"
#include "utilities/signals/SignalHandler.h"
#include "worldmodel/WorldModel.h"

namespace {

void setPan(WorldModel& world, float degrees) {
    Head* head = world.setSelf()->getBody()->getHead();
    HingeJoint pan = head->getNeckX();
    pan.setJointAlphaValue(degrees);
    head->setNeckX(pan);
}

class AgentModelTest : public ::testing::Test {
protected:
    void SetUp() override {
        AgentModel::resetState();
        SignalHandler::resetState();
        Logger::resetState();
        Config::resetState();
    }
    void TearDown() override {
        Config::resetState();
        SignalHandler::finalSignalHandlers();
        SignalHandler::resetState();
        Logger::resetState();
    }
};

TEST_F(AgentModelTest, HeadSweepsSevenDegreesACycleAndTurnsBackWhenThePanEntersABand) {
    AgentModel agent;
    WorldModel world;
    EXPECT_EQ(agent.getHeadSpeed(), 0.0F);

    // The head follows its target exactly: it reaches the band [100, 130] at 105 degrees.
    std::vector<float> targets;
    float pan = 0.0F;
    for (int cycle = 0; cycle < 70; ++cycle) {
        setPan(world, pan);
        pan = agent.headDecision(&world);
        targets.push_back(pan);
    }
    EXPECT_EQ(agent.getHeadSpeed(), 7.0F);
    for (int i = 0; i < 16; ++i) {
        EXPECT_FLOAT_EQ(targets[i], 7.0F * static_cast<float>(i + 1)) << "cycle " << i;
    }
    // The pan read 105 in cycle 15 (the 16th call): the target went on to 112 in that call and
    // comes back from the next one on, until the pan reads -105 in the band [-130, -100].
    for (int i = 16; i < 48; ++i) {
        EXPECT_FLOAT_EQ(targets[i], targets[i - 1] - 7.0F) << "cycle " << i;
    }
    EXPECT_FLOAT_EQ(targets[47], -112.0F);
    EXPECT_FLOAT_EQ(targets[48], -105.0F);
    EXPECT_FLOAT_EQ(targets[49], -98.0F);
}

// A "Main" stream without stamps in a temporary file, so lines can be compared byte for byte.
class AgentSignalDeathTest : public AgentModelTest {
protected:
    void openMain() {
        logger.add("Main", new LogFile((dir.path() + "/" + "main.log"), nullptr), false);
    }
    [[nodiscard]] std::string mainLog() const {
        return support::readFile((dir.path() + "/" + "main.log"));
    }
    support::ScratchDirectory dir;
};

TEST_F(AgentSignalDeathTest, TerminationSignalsLogTheirLineAndExitWithStatusOne) {
    const std::vector<std::pair<int, std::string>> cases = {
        {SIGTERM, "DECISON: SIGNAL: Terminated!\n"},
        {SIGINT, "DECISON: SIGNAL: Interrupted!\n"},
        {SIGQUIT, "DECISON: SIGNAL: Quited!\n"}};
    for (const auto& [signal, line] : cases) {
        EXPECT_EXIT(
            {
                openMain();
                AgentModel agent;
                agent.initialize();
                std::raise(signal);
                SignalHandler::dispatchPending();
            },
            ::testing::ExitedWithCode(1), "");
        EXPECT_EQ(mainLog(), line);
    }
    EXPECT_EXIT(
        {
            openMain();
            AgentModel().sigKillHandler();
        },
        ::testing::ExitedWithCode(1), "");
    EXPECT_EQ(mainLog(), "DECISON: SIGNAL: Killed!\n");
}

TEST_F(AgentModelTest, HeadIsHeldStraightWhileAStandUpPlaysUnderTheAttitudeRule) {
    // Pan and tilt targets (degrees) for each fall rule, with and without a stand-up playing.
    struct Case {
        const char* rule;
        bool standingUp;
        float pan;
        float tilt;
    };
    for (const Case& c : {Case{"Attitude", true, 0.0F, 0.0F}, Case{"Attitude", false, 7.0F, -20.0F},
                          Case{"Landmarks", true, 7.0F, -20.0F}}) {
        SCOPED_TRACE(std::string(c.rule) + (c.standingUp ? " standing up" : " walking"));
        Config::resetState();
        AgentModel::resetState();
        const std::string data = std::string(KORVEL_SOURCE_DIR) + "/Data/ConfigurationData/";
        for (const char* name : {"ServerInitialize", "WorldModelParameters"}) {
            config.add(name, data + name + ".conf");
        }
        config["WorldModelParameters"]["Fall"].add("Rule", c.rule);
        WorldModel world;
        world.update("(time (now 1.00))(GS (t 0.00) (pm BeforeKickOff))");  // reads the rule
        OffensePlan::name = c.standingUp ? subbehaviour::kStandUp : subbehaviour::kDash;
        AgentModel agent;
        Body body;
        Command command(&body);
        agent.pointHead(&command, &world);
        EXPECT_FLOAT_EQ(command.getHeadCommand().getHingeJointCommand(0).getJointTargetAlphaValue(),
                        c.pan);
        EXPECT_FLOAT_EQ(command.getHeadCommand().getHingeJointCommand(1).getJointTargetAlphaValue(),
                        c.tilt);
    }
    OffensePlan::resetState();
}

}  // namespace
