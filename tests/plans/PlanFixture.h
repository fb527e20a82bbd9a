#pragma once

#include <memory>
#include <string>

#include "plans/DefencePlan.h"
#include "plans/GoalKeeperPlan.h"
#include "plans/OffensePlan.h"
#include "support/MotionFixture.h"

namespace plantest {

// A plan test: every skill and plan state starts afresh, the robot is seen on the field (vision
// on) and each cycle runs one plan decision like the acting turn does.
class PlanFixture : public motiontest::MotionFixture {
protected:
    void SetUp() override {
        MotionFixture::SetUp();
        GoalKeeperPlan::resetState();
        DefencePlan::resetState();
        OffensePlan::resetState();
        scene.vision = true;
    }

    // One cycle of the plan P: perceive, build, decide, take the command.
    template <class P>
    std::unique_ptr<Command> cycle(const std::string& name, bool track = true) {
        perceive(track);
        P plan(name, &wm);
        plan.decide();
        auto command = take(plan.getCommand());
        EXPECT_NE(command, nullptr);
        return command;
    }
};

}  // namespace plantest
