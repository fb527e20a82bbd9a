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
};

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
