#include <gtest/gtest.h>

#include <string>

#include "skills/SkillChecker.h"
#include "support/SkillFiles.h"
#include "utilities/config/Config.h"

namespace {

using skilltest::step;
using Severity = SkillChecker::Severity;

class SkillCheckerTest : public ::testing::Test {
protected:
    SkillChecker::Report check() const { return SkillChecker::check(tree.dataDirectory()); }

    skilltest::DataTree tree;
};

TEST_F(SkillCheckerTest, CatchesAPlantedOutOfRangeTarget) {
    tree.addSkill("Good", skilltest::skillText({step({})}, 1));
    tree.addSkill("Bad",
                  skilltest::skillText({step({}), step({{"Leg::Left", "0 50 0 0 0 0"}})}, 1));
    const SkillChecker::Report report = check();
    EXPECT_EQ(report.skillsChecked, 2U);
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_EQ(report.findings[0].severity, Severity::Error);
    EXPECT_EQ(report.findings[0].skill, "Bad");
    EXPECT_EQ(report.findings[0].text,
              "Step2, Leg::Left: lle2 target 50 degrees is outside -25..45");
    EXPECT_EQ(SkillChecker::format(report),
              "error: Bad: Step2, Leg::Left: lle2 target 50 degrees is outside -25..45\n"
              "korvel-check: 2 skills, 1 errors, 0 warnings\n");
}

TEST_F(SkillCheckerTest, ChecksRaiseTargetsAndWarnsAboutSpeed) {
    tree.addSkill("Fast", skilltest::skillText({step({{"leftRaise2", "true 110 4"},
                                                      {"Arm::PLeft", "8 7 1 1"},
                                                      // exactly the motors' top speed
                                                      {"Arm::PRight", "7.03539944 1 1 1"},
                                                      {"rightFootParallerGround", "true 9"}})},
                                               1));
    const SkillChecker::Report report = check();
    EXPECT_EQ(report.errorCount(), 1U);
    EXPECT_EQ(report.warningCount(), 2U);
    EXPECT_EQ(SkillChecker::format(report),
              "warning: Fast: Step1, Arm::PLeft: lae1 speed 8 degrees per cycle is above the "
              "motors' 7.0354\n"
              "error: Fast: Step1, leftRaise2: lle3 target 110 degrees is outside -25..100\n"
              "warning: Fast: Step1, rightFootParallerGround: rle5 speed 9 degrees per cycle is "
              "above the motors' 7.0354\n"
              "korvel-check: 1 skills, 1 errors, 2 warnings\n");
}

// (What is wrong inside a skill file is worded as the player's own reader words it.)
TEST_F(SkillCheckerTest, ReportsAListedSkillWithoutAFile) {
    tree.addSkill("Ghost", "");
    tree.addSkill("Good", skilltest::skillText({step({})}, 1));
    const SkillChecker::Report report = check();
    EXPECT_EQ(report.skillsChecked, 2U);
    ASSERT_EQ(report.findings.size(), 1U) << SkillChecker::format(report);
    EXPECT_EQ(report.findings[0].text, "file \"" + tree.skillPath("Ghost") + "\" cannot be read");
    EXPECT_EQ(report.errorCount(), 1U);
}

}  // namespace
