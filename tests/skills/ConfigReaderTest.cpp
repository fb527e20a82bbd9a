#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "SkillDataWriter.h"
#include "body/Body.h"
#include "commands/Command.h"
#include "skills/ConfigReader.h"
#include "support/FileHelpers.h"
#include "utilities/config/Config.h"
#include "worldmodel/Share.h"

namespace {

using skilltest::step;
using skilltest::StepKeys;

// Escapes text for a POSIX extended regular expression.
std::string literal(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (std::string("\\^$.|?*+()[]{}").find(c) != std::string::npos) {
            escaped += '\\';
        }
        escaped += c;
    }
    return escaped;
}

class ConfigReaderTest : public ::testing::Test {
protected:
    void SetUp() override { resetAll(); }
    void TearDown() override { resetAll(); }

    static void resetAll() {
        ConfigReader::resetState();
        Config::resetState();
        delete Share::lastCommand;
        Share::lastCommand = nullptr;
    }

    // Loads the tree's skills the way the player does: from its working directory.
    ConfigReader::Database load() {
        const support::ScopedChdir inTree(tree.root());
        config.add("Config_FileAdresses", "./Data/ConfigurationData/Config_FileAddresses.conf");
        return ConfigReader::instance()->getConfigSkillCommandDataBase();
    }

    // The only key frames of the only skill "S".
    std::vector<Command*> framesOf(const std::vector<StepKeys>& steps, int loopStep = 1) {
        tree.addSkill("S", skilltest::skillText(steps, loopStep));
        ConfigReader::Database database = load();
        EXPECT_EQ(database.size(), 1U);
        return database["S"];
    }

    skilltest::DataTree tree;
};

void expectJoint(const HingeJointCommand& joint, float target, float speed, float precision) {
    EXPECT_EQ(joint.getJointTargetAlphaValue(), target) << joint.getJointName();
    EXPECT_EQ(joint.getJointVelocityValue(), speed) << joint.getJointName();
    EXPECT_EQ(joint.getPrecision(), precision) << joint.getJointName();
}

TEST_F(ConfigReaderTest, ReadsEveryLimbIntoItsJoints) {
    const auto frames = framesOf({step({
        {"precision", "true 2.5"},
        {"Head::Instance", "-30 15"},
        {"Head::PInstance", "2 3"},
        {"Arm::Left", "-90 10 20 -30"},
        {"Arm::PLeft", "4 5 6 7"},
        {"Arm::Right", "-91 -10 -20 30"},
        {"Arm::PRight", "1 2 3 4"},
        {"Leg::Left", "-1 2 30 -60 30 -2"},
        {"Leg::PLeft", "1 2 3 4 5 6"},
        {"Leg::Right", "-3 -4 31 -61 29 4"},
        {"Leg::PRight", "6 5 4 3 2 1"},
    })});
    ASSERT_EQ(frames.size(), 1U);
    Command& frame = *frames[0];
    EXPECT_TRUE(frame.isPrecision());
    EXPECT_EQ(frame.getPrecisionValue(), 2.5F);
    EXPECT_TRUE(frame.isSendCommand());
    expectJoint(frame.getHeadCommand().getHingeJointCommand(0), -30, 2, 2.5F);
    expectJoint(frame.getHeadCommand().getHingeJointCommand(1), 15, 3, 2.5F);
    const float leftArm[] = {-90, 10, 20, -30};
    const float rightArm[] = {-91, -10, -20, 30};
    for (unsigned int j = 0; j < 4; ++j) {
        expectJoint(frame.getLeftArmCommand().getHingeJointCommand(j), leftArm[j],
                    static_cast<float>(j + 4), 2.5F);
        expectJoint(frame.getRightArmCommand().getHingeJointCommand(j), rightArm[j],
                    static_cast<float>(j + 1), 2.5F);
    }
    const float leftLeg[] = {-1, 2, 30, -60, 30, -2};
    const float rightLeg[] = {-3, -4, 31, -61, 29, 4};
    for (unsigned int j = 0; j < 6; ++j) {
        expectJoint(frame.getLeftLegCommand().getHingeJointCommand(j), leftLeg[j],
                    static_cast<float>(j + 1), 2.5F);
        expectJoint(frame.getRightLegCommand().getHingeJointCommand(j), rightLeg[j],
                    static_cast<float>(6 - j), 2.5F);
        EXPECT_EQ(frame.getLeftLegCommand().getHingeJointCommand(j).getJointCurrentAlphaValue(),
                  0.0F);
    }
}

TEST_F(ConfigReaderTest, PrecisionFalseGivesATenthOfADegreeWhateverFollows) {
    const auto frames = framesOf({step({{"precision", "false 7"}, {"Arm::Left", "5 5 5 5"}})});
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_FALSE(frames[0]->isPrecision());
    EXPECT_EQ(frames[0]->getPrecisionValue(), 0.0F);
    for (unsigned int j = 0; j < 6; ++j) {
        EXPECT_EQ(frames[0]->getRightLegCommand().getHingeJointCommand(j).getPrecision(), 0.1F);
    }
    expectJoint(frames[0]->getLeftArmCommand().getHingeJointCommand(2), 5, 1, 0.1F);
}

TEST_F(ConfigReaderTest, LimbStartingWith9999IsLeftOut) {
    const auto frames = framesOf({step({
        {"Leg::Left", "9999"},
        {"Leg::Right", "1 2 3 4 5 6"},
        {"Arm::Left", "7 7 7 7"},
        {"Arm::PLeft", "9999 1 1 1"},
        {"Head::Instance", "9999 12"},
        {"Head::PInstance", "4"},
    })});
    ASSERT_EQ(frames.size(), 1U);
    Command& frame = *frames[0];
    for (unsigned int j = 0; j < 6; ++j) {
        expectJoint(frame.getLeftLegCommand().getHingeJointCommand(j), 0, 0, 0);
        expectJoint(frame.getRightLegCommand().getHingeJointCommand(j), static_cast<float>(j + 1),
                    1, 0.1F);
    }
    for (unsigned int j = 0; j < 4; ++j) {
        expectJoint(frame.getLeftArmCommand().getHingeJointCommand(j), 0, 0, 0);
        expectJoint(frame.getRightArmCommand().getHingeJointCommand(j), 0, 1, 0.1F);
    }
    expectJoint(frame.getHeadCommand().getHingeJointCommand(1), 0, 0, 0);
}

TEST_F(ConfigReaderTest, LastTargetKeepsBothLegsWhereTheLastCommandWent) {
    const Body body;
    Share::lastCommand = new Command(&body);
    Share::lastCommand->getLeftLegCommand().getKneeCommand().setJointTargetAlphaAndVelocityValue(
        -40, 5, 1);
    Share::lastCommand->getRightLegCommand().getKneeCommand().setJointTargetAlphaAndVelocityValue(
        -45, 5, 1);
    Share::lastCommand->getRightLegCommand().getHipYCommand().setJointTargetAlphaAndVelocityValue(
        33, 5, 1);
    const auto frames = framesOf({
        step({{"precision", "true 2"},
              {"Leg::Left", "1 1 1 LT 1 1"},
              {"Leg::Right", "2 2 2 2 2 2"}}),
        step({{"Leg::Left", "1 1 LT 1 1 1"}, {"Leg::Right", "9999"}}),
    });
    ASSERT_EQ(frames.size(), 2U);
    expectJoint(frames[0]->getLeftLegCommand().getKneeCommand(), -40, 0, 2);
    expectJoint(frames[0]->getRightLegCommand().getKneeCommand(), -45, 0, 2);
    expectJoint(frames[0]->getLeftLegCommand().getHipYCommand(), 1, 1, 2);
    expectJoint(frames[0]->getRightLegCommand().getHipYCommand(), 2, 1, 2);
    // The right leg is left out of step 2: "LT" does not reach it.
    expectJoint(frames[1]->getLeftLegCommand().getHipYCommand(), 0, 0, 0.1F);
    expectJoint(frames[1]->getRightLegCommand().getHipYCommand(), 0, 0, 0);
}

TEST_F(ConfigReaderTest, LastTargetWithoutALastCommandIsZero) {
    const auto frames = framesOf({step({{"Leg::Left", "LT 1 1 1 1 1"}})});
    ASSERT_EQ(frames.size(), 1U);
    expectJoint(frames[0]->getLeftLegCommand().getRotationCommand(), 0, 0, 0.1F);
    expectJoint(frames[0]->getRightLegCommand().getRotationCommand(), 0, 0, 0.1F);
}

TEST_F(ConfigReaderTest, ReadsTheStepFlags) {
    const auto frames = framesOf(
        {
            step({{"wait", "0.5"},
                  {"leftRaise2", "true 25 4"},
                  {"rightFootParallerGround", "true 3"}}),
            step({{"rightRaise2", "true -10 2"}, {"leftFootParallerGround", "TRUE 6"}}),
            step({{"leftRaise2", "false 99 99"}}),
        },
        2);
    ASSERT_EQ(frames.size(), 3U);
    for (const Command* frame : frames) {
        EXPECT_EQ(frame->getLoopStepNumber(), 1U);
    }
    EXPECT_TRUE(frames[0]->isWait());
    EXPECT_EQ(frames[0]->getWaitValue(), 0.5F);
    EXPECT_TRUE(frames[0]->isLeftRaise2());
    EXPECT_EQ(frames[0]->getLeftRaise2Value(), 25.0F);
    EXPECT_EQ(frames[0]->getLeftRaise2Speed(), 4.0F);
    EXPECT_FALSE(frames[0]->isRightRaise2());
    EXPECT_TRUE(frames[0]->isRightFootParallerGround());
    EXPECT_EQ(frames[0]->getRightFootParallerGroundVelocityValue(), 3.0F);
    EXPECT_FALSE(frames[0]->isLeftFootParallerGround());

    EXPECT_FALSE(frames[1]->isWait());
    EXPECT_TRUE(frames[1]->isRightRaise2());
    EXPECT_EQ(frames[1]->getRightRaise2Value(), -10.0F);
    EXPECT_EQ(frames[1]->getRightRaise2Speed(), 2.0F);
    EXPECT_TRUE(frames[1]->isLeftFootParallerGround());
    EXPECT_EQ(frames[1]->getLeftFootParallerGroundVelocityValue(), 6.0F);

    EXPECT_FALSE(frames[2]->isLeftRaise2());
    EXPECT_EQ(frames[2]->getLeftRaise2Value(), 0.0F);
}

TEST_F(ConfigReaderTest, LoadsEveryListedSkillInOrder) {
    tree.addSkill("Two", skilltest::skillText({step({}), step({})}, 1));
    tree.addSkill("Empty", skilltest::skillText({}, 1));
    tree.addSkill("One", skilltest::skillText({step({{"Arm::Left", "3 3 3 3"}})}, 1));
    testing::internal::CaptureStdout();
    ConfigReader::Database database = load();
    const std::string console = testing::internal::GetCapturedStdout();
    EXPECT_EQ(ConfigReader::instance()->getSkillNames(),
              (std::vector<std::string>{"Two", "Empty", "One"}));
    EXPECT_EQ(database.count("Empty"), 0U);  // no steps, no entry
    ASSERT_EQ(database["Two"].size(), 2U);
    ASSERT_EQ(database["One"].size(), 1U);
    EXPECT_NE(database["Two"][0], database["Two"][1]);
    EXPECT_EQ(
        database["One"][0]->getLeftArmCommand().getHingeJointCommand(0).getJointTargetAlphaValue(),
        3.0F);
    // One status line per file, after it was read.
    for (const char* name : {"Two", "Empty", "One"}) {
        EXPECT_NE(console.find(" Loading Config_FileAdresses File: ./Data/SkillData/" +
                               std::string(name) + ".conf"),
                  std::string::npos)
            << console;
    }
    // The database is loaded once: later calls hand out the same key frames.
    EXPECT_EQ(ConfigReader::instance()->getConfigSkillCommandDataBase()["Two"][1],
              database["Two"][1]);
}

class ConfigReaderDeathTest : public ConfigReaderTest {
protected:
    // The reader stops with one diagnostic line naming the file, group, key and what is wrong.
    void expectStop(const std::string& detail) {
        EXPECT_EXIT(load(), ::testing::ExitedWithCode(EXIT_FAILURE),
                    "^ConfigReader:[0-9]+: .*ConfigReader.*: check \".*\" failed \\(" +
                        literal(detail) + "\\)\n$");
    }
};

TEST_F(ConfigReaderDeathTest, MissingSkillFile) {
    tree.addSkill("Ghost", "");
    expectStop(
        "file \"./Data/SkillData/Ghost.conf\": skill \"Ghost\" is listed in the index "
        "but its file cannot be read");
}

TEST_F(ConfigReaderDeathTest, MissingStepGroup) {
    std::string text = skilltest::skillText({step({}), step({})}, 1);
    text.replace(text.find("[Step2]"), 7, "[Step3]");
    tree.addSkill("Gap", text);
    expectStop("file \"./Data/SkillData/Gap.conf\", group \"Step2\": is missing");
}

TEST_F(ConfigReaderDeathTest, MissingKey) {
    tree.addSkill("NoSpeed", skilltest::skillText({step({}), step({{"Arm::PLeft", ""}})}, 1));
    expectStop(
        "file \"./Data/SkillData/NoSpeed.conf\", group \"Step2\", key \"Arm::PLeft\": "
        "is missing");
}

TEST_F(ConfigReaderDeathTest, MissingLoopStep) {
    std::string text = skilltest::skillText({step({})}, 1);
    text.erase(text.find("LoopStepNumber"), std::string("LoopStepNumber = 1\n").size());
    tree.addSkill("NoLoop", text);
    expectStop(
        "file \"./Data/SkillData/NoLoop.conf\", group \"DefaultSet\", key "
        "\"LoopStepNumber\": is missing");
}

TEST_F(ConfigReaderDeathTest, LoopStepOutsideTheSkill) {
    tree.addSkill("Far", skilltest::skillText({step({}), step({})}, 3));
    expectStop(
        "file \"./Data/SkillData/Far.conf\", group \"DefaultSet\", key "
        "\"LoopStepNumber\": must name a step from 1 to 2");
}

TEST_F(ConfigReaderDeathTest, LimbKeyWithTooFewWords) {
    tree.addSkill("Short", skilltest::skillText({step({{"Leg::Right", "1 2 3 4 5"}})}, 1));
    expectStop(
        "file \"./Data/SkillData/Short.conf\", group \"Step1\", key \"Leg::Right\": "
        "6 words needed, 5 given");
}

TEST_F(ConfigReaderDeathTest, FlagWithTooFewWords) {
    tree.addSkill("Raise", skilltest::skillText({step({{"rightRaise2", "true 20"}})}, 1));
    expectStop(
        "file \"./Data/SkillData/Raise.conf\", group \"Step1\", key \"rightRaise2\": "
        "3 words needed, 2 given");
}

TEST_F(ConfigReaderDeathTest, PrecisionWithoutItsValue) {
    tree.addSkill("Loose", skilltest::skillText({step({{"precision", "true"}})}, 1));
    expectStop(
        "file \"./Data/SkillData/Loose.conf\", group \"Step1\", key \"precision\": "
        "2 words needed, 1 given");
}

}  // namespace
