// The decisions of the plans that play for goals: where the kick approach walks, when the kick
// switch fires, where the defender and the keeper stand, and which skill each plan chooses for
// a world state once its parameter group is there.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "plans/DefencePlan.h"
#include "plans/GoalKeeperPlan.h"
#include "plans/KickApproach.h"
#include "plans/OffensePlan.h"
#include "skills/dash/BasicDash.h"
#include "skills/kick/BasicKick.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "support/Files.h"
#include "support/MotionFixture.h"
#include "utilities/config/Config.h"

namespace {

using math::Point;
using Phase = KickApproach::Phase;

TEST(KickApproach, WalksRoundTheBallThenRunsUpAlongTheKickLine) {
    const KickApproach::Parameters p;  // 0.6 m run-up, 0.7 m clearance, 0.25 m, 0.055 m
    struct Case {
        const char* what;
        Point self, ball, goal;
        Phase phase;
        Point target;
    };
    const Case cases[] = {
        {"on the line behind the ball", {-2, -0.055F}, {0, 0}, {15, 0}, Phase::RunUp, {1, -0.055F}},
        {"behind, off the line", {-2, 2}, {0, 0}, {15, 0}, Phase::Behind, {-0.6F, -0.055F}},
        {"in front, left of the line", {2, 0}, {0, 0}, {15, 0}, Phase::Round, {0, 0.7F}},
        {"in front, right of the line", {1, -0.3F}, {0, 0}, {15, 0}, Phase::Round, {0, -0.7F}},
        {"near the run-up's start", {-0.5F, 0.3F}, {0, 0}, {15, 0}, Phase::RunUp, {1, -0.055F}},
        {"right team, goal at -15", {5, 0.055F}, {3, 0}, {-15, 0}, Phase::RunUp, {2, 0.055F}},
        {"right team, in front", {1, 0}, {3, 0}, {-15, 0}, Phase::Round, {3, -0.7F}},
        // Aimed at the goal centre from (12, 3): 0.6 m back along the diagonal, 0.055 m right.
        {"ball near a corner", {8, 8}, {12, 3}, {15, 0}, Phase::Behind, {11.53684F, 3.38537F}},
    };
    for (const Case& c : cases) {
        const KickApproach::Target t = KickApproach::target(c.self, c.ball, c.goal, p);
        EXPECT_EQ(t.phase, c.phase) << c.what << ": " << KickApproach::phaseName(t.phase);
        EXPECT_NEAR(t.point.getX(), c.target.getX(), 1e-4F) << c.what;
        EXPECT_NEAR(t.point.getY(), c.target.getY(), 1e-4F) << c.what;
    }
}

TEST(KickApproach, SwitchFiresCloseBehindTheBallFacingTheKick) {
    const KickApproach::Switch limits;  // 0.35 m, 30 degrees, 45 degrees
    struct Case {
        const char* what;
        Point ball;
        float heading, direction;
        bool kick;
    };
    const Case cases[] = {
        {"ball at the left foot", {0.2F, 0.05F}, 0, 0, true},
        {"too far", {0.4F, 0}, 0, 0, false},
        {"just in reach", {0.35F, 0}, 0, 0, true},
        {"behind the robot", {-0.2F, 0}, 0, 0, false},
        {"level with the robot", {0, 0}, 0, 0, false},
        {"facing the largest error off", {0.2F, 0}, -45, 0, true},
        {"facing just beyond it", {0.2F, 0}, 46, 0, false},
        {"beside it", {0.1F, 0.1F}, 0, 0, false},
        {"facing off the kick", {0.2F, 0}, 60, 0, false},
        {"kicking towards -x", {-0.2F, -0.05F}, 180, 180, true},
        {"kicking up a diagonal", {0.17F, 0.1F}, 20, 30, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(KickApproach::isKickPosition({0, 0}, c.heading, c.ball, c.direction, limits),
                  c.kick)
            << c.what;
    }
}

TEST(DefenderAndKeeperPlaces, OnTheirLinesBetweenBallAndGoal) {
    struct Case {
        const char* what;
        Point ball, ownGoal;
        float lineX, maxY;
        Point place;
    };
    const Case cases[] = {
        {"ball on the centre spot", {0, 0}, {-15, 0}, -9, 9, {-9, 0}},
        {"ball far up the field", {5, 10}, {-15, 0}, -9, 9, {-9, 3}},
        {"ball between line and goal", {-12, 4}, {-15, 0}, -9, 9, {-9, 4}},
        {"kept off the touch line", {5, 10}, {-15, 0}, -9, 2, {-9, 2}},
        {"right team", {-5, -10}, {15, 0}, 9, 9, {9, -3}},
    };
    for (const Case& c : cases) {
        const Point p = DefencePlan::guardPoint(c.ball, c.ownGoal, c.lineX, c.maxY);
        EXPECT_NEAR(p.getX(), c.place.getX(), 1e-4F) << c.what;
        EXPECT_NEAR(p.getY(), c.place.getY(), 1e-4F) << c.what;
    }
    // The keeper follows the ball's y within the goal's width, 0.2 m inside the posts.
    EXPECT_FLOAT_EQ(GoalKeeperPlan::keeperY(0.3F, 2.1F, 0.2F), 0.3F);
    EXPECT_FLOAT_EQ(GoalKeeperPlan::keeperY(5.0F, 2.1F, 0.2F), 0.85F);
    EXPECT_FLOAT_EQ(GoalKeeperPlan::keeperY(-5.0F, 2.1F, 0.2F), -0.85F);
}

// The plans with their parameter groups, as the shipped data has them.
class PlayToWinPlanTest : public motiontest::MotionFixture {
protected:
    void SetUp() override {
        MotionFixture::SetUp();
        scene.vision = true;
        add("OffenseParameters",
            "[Attack]\nTarget = goal\nApproachDistance = 0.6\nClearance = 0.7\n"
            "LineTolerance = 0.25\nFootOffset = 0.055\n");
        add("DefenceParameters",
            "[Initialize]\nBeam = -9 1.5 0\n[Defend]\nFieldMargin = 1\nOffLine = 1\n"
            "ClearDistance = 2\nApproachDistance = 0.6\nClearance = 0.7\nLineTolerance = 0.25\n"
            "FootOffset = 0.055\n[Kick]\nMaxBallDistance = 0.35\nMaxBallBearing = 30\n"
            "MaxHeadingError = 45\n");
        add("GoalKeeperParameters",
            "[Initialize]\nBeam = -14 0 0\n[Keep]\nPostMargin = 0.2\nOffLine = 0.7\n");
    }
    void TearDown() override {
        // The next test registers its configuration afresh, without these groups.
        Config::resetState();
    }

    void add(const std::string& name, const std::string& text) {
        const std::string path = dir.path() + "/" + name + ".conf";
        std::ofstream(path) << text;
        Config().add(name, path);
    }

    support::ScratchDirectory dir;
};

// Back on its line after a walk, the defender side-steps from the side step's first key frame,
// wherever the walk had got to in its gait (the key-frame step is shared by every skill player).
TEST_F(PlayToWinPlanTest, DefenderSideStepsFromTheFirstFrameAfterAWalk) {
    scene.x = -4;  // its line is x = -9
    scene.ballX = 5;
    scene.ballY = 10;
    for (int i = 0; i < 3; ++i) {
        cycle<DefencePlan>("Defence");
    }
    EXPECT_EQ(DefencePlan::name, "walk");
    scene.x = -9;  // at its place on the line, level with where the ball's line crosses it
    scene.y = 3;
    cycle<DefencePlan>("Defence");
    EXPECT_EQ(DefencePlan::name, "sideWalk");
    EXPECT_EQ(lastMarker, motiontest::marker("LeftSideWalk", 0));
}

// One cycle of a role's plan (two for the attacker: its first is the opening style step) from a
// fresh game: the sub-behaviour chosen and the skill started (the dive's side, or the
// side-stepping or walking skill), or for the attacker's walk its target.
TEST_F(PlayToWinPlanTest, EachRoleChoosesForTheBallAndItsPlace) {
    struct Case {
        const char* what;
        char role;           // 'A'ttacker, 'D'efender or 'K'eeper
        unsigned char side;  // 1 left, 2 right
        float x, y, heading, ballX, ballY;
        const char* name;
        const char* skill;  // "" for the attacker
        Point target;       // the attacker's walking target
    };
    const Case cases[] = {
        {"behind the ball, off the line", 'A', 1, -3, 2, 0, 0, 0, "dash", "", {-0.6F, -0.055F}},
        {"in front of the ball", 'A', 1, 2, 0.2F, 180, 0, 0, "dash", "", {0, 0.7F}},
        {"at the ball facing the goal", 'A', 1, -0.2F, -0.05F, 0, 0, 0, "kick", "", {}},
        {"right team, behind the ball", 'A', 2, 3, -2, 180, 0, 0, "dash", "", {0.6F, 0.055F}},
        {"right team, at the ball", 'A', 2, 0.2F, 0.05F, 180, 0, 0, "kick", "", {}},
        {"on its line, ball to its left", 'D', 1, -9, 0, 0, 5, 10, "sideWalk", "LeftSideWalk", {}},
        {"on its line, ball right", 'D', 1, -9, 0, 0, 5, -10, "sideWalk", "RightSideWalk", {}},
        {"right team, ball right", 'D', 2, 9, 0, 180, -5, 10, "sideWalk", "RightSideWalk", {}},
        {"off its line", 'D', 1, -4, 0, 0, 5, 0, "walk", "Walk", {}},
        {"ball close in the own half", 'D', 1, -9, 0, 0, -8, 1, "clear", "Walk", {}},
        {"ball close, opponents' half", 'D', 2, -9, 0, 0, -8, 1, "walk", "Walk", {}},
        {"left team, ball near its goal", 'K', 1, -14, 0, 0, -12, 0.4F, "div", "RightDiv", {}},
        {"right team, ball near its goal", 'K', 2, 14, 0, 180, 12, -0.4F, "div", "RightDiv", {}},
        {"right team, ball mirrored", 'K', 2, 14, 0, 180, 12, 0.4F, "div", "LeftDiv", {}},
        {"ball in the other half", 'K', 2, 14, 0, 180, -12, 0.4F, "sideWalk", "RightSideWalk", {}},
        {"ball up the field left", 'K', 1, -14, 0, 0, 0, 6, "sideWalk", "LeftSideWalk", {}},
        {"beyond the post's place", 'K', 1, -14, 1.2F, 0, 0, 6, "sideWalk", "RightSideWalk", {}},
        {"right team, ball to its left", 'K', 2, 14, 0, 180, 0, -6, "sideWalk", "LeftSideWalk", {}},
        {"wandered off", 'K', 1, -10, 3, 0, 0, 0, "sideWalk", "Walk", {}},
    };
    for (const Case& c : cases) {
        OffensePlan::resetState();
        DefencePlan::resetState();
        GoalKeeperPlan::resetState();
        motiontest::resetSkillState();
        scene.side = c.side;
        scene.x = c.x;
        scene.y = c.y;
        scene.heading = c.heading;
        scene.ballX = c.ballX;
        scene.ballY = c.ballY;
        std::string name;
        bool walking = c.role != 'K';
        if (c.role == 'A') {
            cycle<OffensePlan>("Offense");
            cycle<OffensePlan>("Offense");
            name = OffensePlan::name;
        } else if (c.role == 'D') {
            cycle<DefencePlan>("Defence");
            name = DefencePlan::name;
        } else {
            cycle<GoalKeeperPlan>("Goalie");
            name = GoalKeeperPlan::name;
            walking = GoalKeeperPlan::walking;
        }
        EXPECT_EQ(name, c.name) << c.what;
        if (c.role == 'A') {
            if (name == "dash") {
                EXPECT_NEAR(OffensePlan::mPoint.getX(), c.target.getX(), 0.05F) << c.what;
                EXPECT_NEAR(OffensePlan::mPoint.getY(), c.target.getY(), 0.05F) << c.what;
            }
            continue;
        }
        const std::string skill = name == "div" ? GoalKeeperPlan::diveSide
                                  : name == "sideWalk" && (c.role == 'D' || !walking)
                                      ? BasicSideWalk::getConfigSkill().getCurrentSkillName()
                                      : BasicDash::getConfigSkill().getCurrentSkillName();
        EXPECT_EQ(skill, c.skill) << c.what;
    }
}

}  // namespace
