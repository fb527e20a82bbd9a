#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "commands/Command.h"
#include "skills/dive/LeftDiv.h"
#include "skills/dive/RightDiv.h"
#include "support/MotionFixture.h"

namespace {

class DiveTest : public motiontest::MotionFixture {
protected:
    void at(float time) {
        scene.time = time - 0.02F;
        perceive();
    }

    static float target(const LegCommand& leg, unsigned int joint) {
        return leg.getHingeJointCommand(joint).getJointTargetAlphaValue();
    }
    static float speed(const LegCommand& leg, unsigned int joint) {
        return leg.getHingeJointCommand(joint).getJointVelocityValue();
    }
};

TEST_F(DiveTest, ClockStartsAtTheFirstDiveAndRunsTwentySeconds) {
    at(100.0F);
    LeftDiv first(&wm);
    std::unique_ptr<Command> owned(first.getCommand());
    EXPECT_EQ(LeftDiv::getTime(), wm.getTime());
    EXPECT_FALSE(first.isFinished());
    EXPECT_EQ(RightDiv::getTime(), -1.0F);  // the clocks are separate

    LeftDiv::setTime(100.0F);
    scene.time = 120.0F;
    wm.update(motiontest::message(scene));
    LeftDiv atTwenty(&wm);
    owned.reset(atTwenty.getCommand());
    EXPECT_FALSE(atTwenty.isFinished());  // 20.0 is not more than 20.0
    EXPECT_EQ(LeftDiv::getTime(), 100.0F);

    scene.time = 120.02F;
    wm.update(motiontest::message(scene));
    LeftDiv later(&wm);
    owned.reset(later.getCommand());
    EXPECT_TRUE(later.isFinished());
}

TEST_F(DiveTest, ResetStartsANewDiveAndSetTimeIsHonoured) {
    at(130.0F);
    RightDiv::setTime(-1.0F);
    RightDiv fresh(&wm);
    std::unique_ptr<Command> owned(fresh.getCommand());
    EXPECT_EQ(RightDiv::getTime(), wm.getTime());
    EXPECT_FALSE(fresh.isFinished());

    RightDiv::setTime(100.0F);
    RightDiv timed(&wm);
    owned.reset(timed.getCommand());
    EXPECT_TRUE(timed.isFinished());  // 130 - 100 > 20
    EXPECT_EQ(RightDiv::getTime(), 100.0F);
}

TEST_F(DiveTest, RightDiveMirrorsTheLeftDive) {
    at(10.0F);
    const std::unique_ptr<Command> left(LeftDiv(&wm).getCommand());
    const std::unique_ptr<Command> right(RightDiv(&wm).getCommand());
    EXPECT_EQ(left->getPrecisionValue(), 2.0F);
    EXPECT_EQ(right->getPrecisionValue(), 2.0F);
    for (unsigned int j = 0; j < 5; ++j) {
        EXPECT_EQ(target(left->getLeftLegCommand(), j), target(right->getRightLegCommand(), j))
            << "joint " << j;
        EXPECT_EQ(target(left->getRightLegCommand(), j), target(right->getLeftLegCommand(), j))
            << "joint " << j;
        EXPECT_EQ(speed(left->getLeftLegCommand(), j), speed(right->getRightLegCommand(), j));
    }
    EXPECT_EQ(target(left->getLeftLegCommand(), 3), -30.0F);
    EXPECT_EQ(target(left->getRightLegCommand(), 3), -60.0F);
    EXPECT_EQ(target(left->getLeftLegCommand(), 5), -30.0F);
    EXPECT_EQ(target(left->getRightLegCommand(), 5), 0.0F);
    EXPECT_EQ(target(right->getRightLegCommand(), 5), 30.0F);
    EXPECT_EQ(target(right->getLeftLegCommand(), 5), 0.0F);
    EXPECT_EQ(speed(right->getRightLegCommand(), 5), 7.0F);
    EXPECT_EQ(left->getLeftLegCommand().getHingeJointCommand(2).getPrecision(), 0.1F);
}

TEST_F(DiveTest, EffectorTextOfADiveFromAStandingBody) {
    at(10.0F);
    const std::unique_ptr<Command> left(LeftDiv(&wm).getCommand());
    const std::unique_ptr<Command> right(RightDiv(&wm).getCommand());
    left->setAllCommands();
    right->setAllCommands();
    EXPECT_EQ(left->toString(),
              "(he1 0) (he2 0)"
              "(rae1 6.10865) (rae2 0) (rae3 0) (rae4 0)"
              "(lae1 6.10865) (lae2 0) (lae3 0) (lae4 0)"
              "(rle1 0) (rle2 0) (rle3 0.872665) (rle4 -6.10865) (rle5 0.872665) (rle6 0)"
              "(lle1 0) (lle2 0) (lle3 0.872665) (lle4 -6.10865) (lle5 0.872665) (lle6 -6.10865)"
              "(Say )");
    EXPECT_EQ(right->toString(),
              "(he1 0) (he2 0)"
              "(rae1 6.10865) (rae2 0) (rae3 0) (rae4 0)"
              "(lae1 6.10865) (lae2 0) (lae3 0) (lae4 0)"
              "(rle1 0) (rle2 0) (rle3 0.872665) (rle4 -6.10865) (rle5 0.872665) (rle6 6.10865)"
              "(lle1 0) (lle2 0) (lle3 0.872665) (lle4 -6.10865) (lle5 0.872665) (lle6 0)"
              "(Say )");
}

}  // namespace
