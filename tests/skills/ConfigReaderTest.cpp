#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "body/Body.h"
#include "commands/Command.h"
#include "skills/ConfigReader.h"
#include "support/Expected.h"
#include "support/Files.h"
#include "support/SkillFiles.h"
#include "utilities/config/Config.h"
#include "worldmodel/Share.h"

namespace {

using skilltest::step;
using skilltest::StepKeys;

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
    const Command& frame = *frames[0];
    EXPECT_TRUE(frame.isPrecision());
    EXPECT_EQ(frame.getPrecisionValue(), 2.5F);
    EXPECT_TRUE(frame.isSendCommand());
    // Each joint's target and speed, "target/speed" in the file's order; every precision 2.5.
    const auto joints = [](const auto& limb, unsigned int count) {
        std::string text;
        for (unsigned int j = 0; j < count; ++j) {
            const HingeJointCommand& joint = limb.getHingeJointCommand(j);
            EXPECT_EQ(joint.getPrecision(), 2.5F) << joint.getJointName();
            EXPECT_EQ(joint.getJointCurrentAlphaValue(), 0.0F) << joint.getJointName();
            text += std::to_string(static_cast<int>(joint.getJointTargetAlphaValue())) + "/" +
                    std::to_string(static_cast<int>(joint.getJointVelocityValue())) + " ";
        }
        return text;
    };
    EXPECT_EQ(joints(frame.getHeadCommand(), 2), "-30/2 15/3 ");
    EXPECT_EQ(joints(frame.getLeftArmCommand(), 4), "-90/4 10/5 20/6 -30/7 ");
    EXPECT_EQ(joints(frame.getRightArmCommand(), 4), "-91/1 -10/2 -20/3 30/4 ");
    EXPECT_EQ(joints(frame.getLeftLegCommand(), 6), "-1/1 2/2 30/3 -60/4 30/5 -2/6 ");
    EXPECT_EQ(joints(frame.getRightLegCommand(), 6), "-3/6 -4/5 31/4 -61/3 29/2 4/1 ");
}

// A bad skill file stops the reader with one diagnostic line naming the file, group, key and what
// is wrong.
TEST_F(ConfigReaderTest, BadSkillFilesStopNamingTheFileGroupAndKey) {
    std::string gap = skilltest::skillText({step({}), step({})}, 1);
    gap.replace(gap.find("[Step2]"), 7, "[Step3]");
    std::string noLoop = skilltest::skillText({step({})}, 1);
    noLoop.erase(noLoop.find("LoopStepNumber"), std::string("LoopStepNumber = 1\n").size());
    const std::pair<std::string, std::string> cases[] = {
        {"",
         "file \"./Data/SkillData/S.conf\": skill \"S\" is listed in the index but its file "
         "cannot be read"},
        {gap, "file \"./Data/SkillData/S.conf\", group \"Step2\": is missing"},
        {skilltest::skillText({step({}), step({{"Arm::PLeft", ""}})}, 1),
         "file \"./Data/SkillData/S.conf\", group \"Step2\", key \"Arm::PLeft\": is missing"},
        {noLoop,
         "file \"./Data/SkillData/S.conf\", group \"DefaultSet\", key "
         "\"LoopStepNumber\": is missing"},
        {skilltest::skillText({step({}), step({})}, 3),
         "file \"./Data/SkillData/S.conf\", group \"DefaultSet\", key \"LoopStepNumber\": must "
         "name a step from 1 to 2"},
        {skilltest::skillText({step({{"Leg::Right", "1 2 3 4 5"}})}, 1),
         "file \"./Data/SkillData/S.conf\", group \"Step1\", key \"Leg::Right\": 6 words needed, "
         "5 given"},
        {skilltest::skillText({step({{"precision", "true"}})}, 1),
         "file \"./Data/SkillData/S.conf\", group \"Step1\", key \"precision\": 2 words needed, "
         "1 given"},
        {skilltest::skillText({step({}), step({{"endAtLean", "far"}})}, 1),
         "file \"./Data/SkillData/S.conf\", group \"Step2\", key \"endAtLean\": \"far\" is not "
         "an angle from -180 to 180 degrees"},
    };
    for (const auto& [text, detail] : cases) {
        skilltest::DataTree bad;
        bad.addSkill("S", text);
        const support::ScopedChdir inTree(bad.root());
        config.add("Config_FileAdresses", "./Data/ConfigurationData/Config_FileAddresses.conf");
        EXPECT_EXIT(ConfigReader::instance(), ::testing::ExitedWithCode(EXIT_FAILURE),
                    "^ConfigReader:[0-9]+: .*ConfigReader.*: check \".*\" failed \\(" +
                        support::regexLiteral(detail) + "\\)\n$")
            << detail;
        Config::resetState();
    }
}

}  // namespace
