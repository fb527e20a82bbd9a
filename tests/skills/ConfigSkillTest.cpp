#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>

#include "body/Body.h"
#include "commands/Command.h"
#include "skills/ConfigReader.h"
#include "skills/ConfigSkill.h"
#include "support/Expected.h"
#include "support/Files.h"
#include "support/SkillFiles.h"
#include "utilities/config/Config.h"
#include "utilities/logging/Debugger.h"
#include "utilities/logging/Logger.h"
#include "worldmodel/Self.h"
#include "worldmodel/Share.h"
#include "worldmodel/WorldModel.h"

namespace {

using skilltest::step;
using support::effectorText;

class ConfigSkillTest : public ::testing::Test {
protected:
    void SetUp() override { resetAll(); }
    void TearDown() override { resetAll(); }

    static void resetAll() {
        ConfigReader::resetState();
        Config::resetState();
        ConfigSkill::resetState();
        Command::resetState();
        Logger::resetState();
        delete Share::lastCommand;
        Share::resetState();
        Self::resetState();
    }

    // Loads the tree's skills from its working directory, as the player's first request does.
    void load() {
        const support::ScopedChdir inTree(tree.root());
        config.add("Config_FileAdresses", "./Data/ConfigurationData/Config_FileAddresses.conf");
        testing::internal::CaptureStdout();  // the loading status lines
        ConfigReader::instance();
        testing::internal::GetCapturedStdout();
    }

    // Sets the perceived angle (degrees) of one joint of the agent's body.
    template <class LimbT>
    static void setAngle(LimbT* limb, unsigned int index, float degrees) {
        HingeJoint joint(limb->getHingeJoint(index));
        joint.setJointAlphaValue(degrees);
        limb->setHingeJoint(index, joint);
    }

    Body& body() { return *agent.getBody(); }
    Command* play(const std::string& name) { return player.getConfigCommandSkill(name, &agent); }

    skilltest::DataTree tree;
    Self agent{math::Vector3<float>(), math::Vector3<float>(), math::Vector3<float>(), 0.0F, 0.0F};
    ConfigSkill player;
};

// Step 1 lifts the left shoulder to 10 degrees at 5 degrees per cycle; step 2 brings it back at
// 1 degree per cycle and bends the right knee to -20 at 4 degrees per cycle; then step 1 again.
void addTwoStepSkill(skilltest::DataTree& tree) {
    tree.addSkill("Two",
                  skilltest::skillText(
                      {
                          step({{"Arm::Left", "10 0 0 0"}, {"Arm::PLeft", "5 1 1 1"}}),
                          step({{"Leg::Right", "0 0 0 -20 0 0"}, {"Leg::PRight", "1 1 1 4 1 1"}}),
                      },
                      1));
}

TEST_F(ConfigSkillTest, TwoStepSkillPlaysFrameByFrameAndLoops) {
    addTwoStepSkill(tree);
    load();
    const std::vector<Command*> frames =
        ConfigReader::instance()->getConfigSkillCommandDataBase()["Two"];
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(player.getCurrentSkillName(), "@");

    // Far from step 1: full speed.
    Command* command = play("Two");
    EXPECT_EQ(command, frames[0]);
    EXPECT_EQ(player.getCurrentSkillName(), "Two");
    EXPECT_EQ(player.getConfigCommandSkillSize(), 2U);
    EXPECT_EQ(player.getConfigLoopStepNumber(), 0U);
    EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), 0U);
    EXPECT_FALSE(player.isFinished());
    EXPECT_EQ(command->toString(), effectorText({{"lae1", "4.36332"}}));

    // Close to it: half the remaining error.
    setAngle(body().getLeftArm(), 0, 8.0F);
    command = play("Two");
    EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), 0U);
    EXPECT_EQ(command->toString(), effectorText({{"lae1", "0.872665"}}));

    for (int pass = 0; pass < 2; ++pass) {
        // Step 1 reached: step 2 starts at once, from the perceived posture.
        setAngle(body().getLeftArm(), 0, 10.0F);
        setAngle(body().getRightLeg(), 3, 0.0F);
        command = play("Two");
        EXPECT_EQ(command, frames[1]);
        EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), 1U);
        EXPECT_FALSE(player.isFinished());
        EXPECT_EQ(command->toString(), effectorText({{"lae1", "-0.872665"}, {"rle4", "-3.49066"}}));

        // Step 2 reached: the skill is finished and wraps to its loop step.
        setAngle(body().getLeftArm(), 0, 0.0F);
        setAngle(body().getRightLeg(), 3, -20.0F);
        command = play("Two");
        EXPECT_EQ(command, frames[0]);
        EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), 0U);
        EXPECT_TRUE(player.isFinished()) << "pass " << pass;
        EXPECT_EQ(command->toString(), effectorText({{"lae1", "4.36332"}, {"rle4", "0.872665"}}));

        // Finished only in the call that completed the pass.
        command = play("Two");
        EXPECT_FALSE(player.isFinished()) << "pass " << pass;
        EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), 0U);
        EXPECT_EQ(command->toString(), effectorText({{"lae1", "4.36332"}, {"rle4", "0.872665"}}));
    }
}

TEST_F(ConfigSkillTest, AFinishedSkillStartsAgainAtItsLoopStep) {
    tree.addSkill("Loop", skilltest::skillText({step({}), step({}), step({})}, 2));
    load();
    for (int call = 0; call < 3; ++call) {
        play("Loop");  // the body is at every target: one step a call
    }
    EXPECT_TRUE(player.isFinished());
    EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), 1U);
}

TEST_F(ConfigSkillTest, KeyFrameIsReachedWithinItsPrecision) {
    tree.addSkill("Loose", skilltest::skillText({step({{"precision", "true 5"},
                                                       {"Leg::Left", "0 0 30 0 0 0"},
                                                       {"Leg::PLeft", "1 1 3 1 1 1"}}),
                                                 step({})},
                                                1));
    tree.addSkill(
        "Tight",
        skilltest::skillText(
            {step({{"Leg::Left", "0 0 30 0 0 0"}, {"Leg::PLeft", "1 1 3 1 1 1"}}), step({})}, 1));
    load();
    // Reached: the next step is due at once; missed: the step is held.
    const std::tuple<const char*, float, unsigned int> cases[] = {
        {"Loose", 25.1F, 1}, {"Loose", 34.9F, 1}, {"Tight", 29.95F, 1}, {"Tight", 30.05F, 1},
        {"Loose", 24.9F, 0}, {"Loose", 35.1F, 0}, {"Tight", 29.85F, 0}, {"Tight", 30.15F, 0}};
    for (const auto& [name, angle, next] : cases) {
        ConfigSkill::setCurrentConfigStepNumber(0);
        setAngle(body().getLeftLeg(), 2, angle);
        play(name);
        EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), next) << name << " at " << angle;
    }
}

// A step with "endAtLean" ends once the world model's torso leans that far forward, its targets
// reached or not; without a world model only the targets count.
TEST_F(ConfigSkillTest, KeyFrameEndsAtItsLean) {
    tree.addSkill("Tip", skilltest::skillText({step({{"endAtLean", "70"},
                                                     {"Leg::Left", "0 0 30 0 0 0"},
                                                     {"Leg::PLeft", "1 1 3 1 1 1"}}),
                                               step({})},
                                              1));
    load();
    // Leaning `degrees` forward, the accelerometer shows the up direction tilted to the back.
    const auto leaning = [](float degrees) {
        const double radians = static_cast<double>(degrees) * 3.14159265358979 / 180.0;
        char text[120];
        std::snprintf(text, sizeof text, "(time (now 1.00))(ACC (n torso) (a 0.00 %.3f %.3f))",
                      -9.81 * std::sin(radians), 9.81 * std::cos(radians));
        return std::string(text);
    };
    // What a world model reads from the configuration: an offline player on today's field.
    for (const auto& [file, group, key, value] :
         {std::tuple{"ServerInitialize", "Server", "OfflinePlaying", "true"},
          std::tuple{"WorldModelParameters", "Field", "Length", "30"},
          std::tuple{"WorldModelParameters", "Field", "Width", "20"},
          std::tuple{"WorldModelParameters", "Field", "GoalWidth", "2.1"},
          std::tuple{"WorldModelParameters", "Ball", "Radius", "0.042"}}) {
        config.add(file);
        config[file].addGroup(group);
        config[file][group].add(key, value);
    }
    const std::pair<float, unsigned int> cases[] = {
        {75.0F, 1}, {70.5F, 1}, {69.5F, 0}, {-80.0F, 0}};
    for (const auto& [degrees, next] : cases) {
        WorldModel wm;
        ASSERT_TRUE(wm.update(leaning(degrees)));
        EXPECT_NEAR(wm.getAttitude().getForwardLean(), degrees, 0.01F);
        ConfigSkill::setCurrentConfigStepNumber(0);
        player.getConfigCommandSkill("Tip", &wm);
        EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), next) << "leaning " << degrees;
    }
    ConfigSkill::setCurrentConfigStepNumber(0);
    play("Tip");
    EXPECT_EQ(ConfigSkill::getCurrentConfigStepNumber(), 0U);
}

}  // namespace
